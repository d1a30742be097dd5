// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>

/// What can stand where a regular file is expected.
enum class Irregular { Pipe, LinkToPipe, Device, Socket, Folder };

inline const char* nameOf(Irregular kind)
{
    constexpr std::array names{"Pipe", "LinkToPipe", "Device", "Socket", "Folder"};
    return names[static_cast<std::size_t>(kind)];
}

/// A named pipe with a text that waits in it. Both of its ends are open, so that whoever opens it too can read and
/// write at once.
class FilledPipe
{
public:
    FilledPipe(const QString& path, const QByteArray& text)
    {
        const QByteArray name = QFile::encodeName(path);
        if (mkfifo(name.constData(), S_IRUSR | S_IWUSR) == 0)
            m_end = open(name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        if (m_end < 0 || write(m_end, text.constData(), static_cast<std::size_t>(text.size())) != text.size())
            qFatal("cannot make the pipe of a test");
    }
    ~FilledPipe() { close(m_end); }
    FilledPipe(const FilledPipe&) = delete;
    FilledPipe& operator=(const FilledPipe&) = delete;

    /// What waits in it now; takes it out.
    QByteArray takeText() const
    {
        std::array<char, 4096> bytes = {};
        const ssize_t count = read(m_end, bytes.data(), bytes.size());
        return {bytes.data(), static_cast<qsizetype>(std::max(count, ssize_t{0}))};
    }

private:
    int m_end = -1;
};

/// Puts something of that kind at `path`. Nobody holds the other end of a pipe. False where the path is too long.
inline bool makeIrregular(Irregular kind, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    switch (kind) {
    case Irregular::Pipe:
        return mkfifo(name.constData(), S_IRUSR | S_IWUSR) == 0;
    case Irregular::LinkToPipe: {
        const QByteArray target = name + ".pipe";
        return mkfifo(target.constData(), S_IRUSR | S_IWUSR) == 0 && symlink(target.constData(), name.constData()) == 0;
    }
    case Irregular::Device:
        return symlink("/dev/zero", name.constData()) == 0;
    case Irregular::Folder:
        return mkdir(name.constData(), S_IRWXU) == 0;
    case Irregular::Socket:
        break;
    }
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (name.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return false;
    std::copy(name.cbegin(), name.cend(), std::begin(address.sun_path));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool made = bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(socket);
    return made;
}
