// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <limits>
#include <optional>
#include <sys/stat.h>

class QFile;

namespace zepa {

/// What a symbolic link at the end of a path means.
enum class Links {
    Follow,
    Refuse ///< for folders in which only we write: a link there is somebody else's
};

/// An open file that is a regular one, closed with the object. To open a pipe can take for ever, to open a device can
/// do something, and to read either may never end: whatever is no regular file, or is larger than the caller allows,
/// counts as a file that cannot be opened, and is left unopened. Never waits for another program.
class RegularFile
{
public:
    enum class State {
        Open,
        Missing,    ///< nothing has that name, or a link leads nowhere
        Link,       ///< a symbolic link, with Links::Refuse
        NotRegular, ///< a folder, a pipe, a socket or a device
        TooLarge,
        Failed ///< the system refused
    };

    static constexpr qint64 anySize = std::numeric_limits<qint64>::max();

    /// @param mostBytes  the largest file that is opened
    static RegularFile openToRead(const QString& path, qint64 mostBytes, Links links = Links::Follow);
    /// What is written goes to the end. A missing file is made, readable by its owner alone whatever the umask.
    static RegularFile openToAppend(const QString& path, Links links = Links::Follow);

    ~RegularFile();
    RegularFile(RegularFile&& other) noexcept;
    RegularFile& operator=(RegularFile&& other) = delete;
    Q_DISABLE_COPY(RegularFile)

    State state() const { return m_state; }
    bool isOpen() const { return m_state == State::Open; }
    /// Why it is not open, for a log, in English; empty when it is.
    QString reason() const;
    /// -1 when it is not open.
    int descriptor() const { return m_descriptor; }
    /// As it was when it was opened; of what was found instead when it is not open.
    const struct stat& status() const { return m_status; }

    /// From where the descriptor stands to the end; nothing when that cannot be read, or has become too large.
    std::optional<QByteArray> readAll() const;
    /// Hands the descriptor over to `device`, made for the same path, and opens it for reading; false when this is not
    /// open. The device closes it.
    bool moveTo(QFile& device);

private:
    explicit RegularFile(qint64 mostBytes) : m_mostBytes(mostBytes) {}
    void open(const QString& path, int flags, Links links);
    void accept(int descriptor);
    void fail(int error);
    State judge() const;

    int m_descriptor = -1;
    int m_error = 0; ///< of the system, with State::Failed
    State m_state = State::Failed;
    struct stat m_status = {};
    qint64 m_mostBytes = 0;
};

} // namespace zepa
