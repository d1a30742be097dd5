// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/stored_file.h"

#include "core/rule_document.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace zepa {

namespace {

class Descriptor
{
public:
    Descriptor(const QString& path, int flags, mode_t mode = 0)
        : m_number(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
    {}
    ~Descriptor() { close(); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    /// Some file systems report only now that there was no room.
    bool close() { return m_number < 0 || ::close(std::exchange(m_number, -1)) == 0; }

    bool write(const QByteArray& content) const
    {
        for (qsizetype done = 0; done < content.size();) {
            const ssize_t count =
                ::write(m_number, content.constData() + done, static_cast<std::size_t>(content.size() - done));
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return false;
            done += count;
        }
        return true;
    }

private:
    int m_number;
};

bool syncFolderOf(const QString& path)
{
    const Descriptor folder(QFileInfo(path).path(), O_RDONLY | O_DIRECTORY);
    // A file system that cannot sync folders keeps their order by itself.
    return folder.isOpen() && (::fsync(folder.number()) == 0 || errno == EINVAL);
}

/// The whole file; false when it grows past the limit meanwhile, or cannot be read.
bool readAll(const Descriptor& file, QByteArray& content)
{
    char block[16384];
    for (;;) {
        const ssize_t count = ::read(file.number(), block, sizeof block);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        content.append(block, count);
        if (content.size() > ZepaRuleDocument::largestProtected)
            return false;
    }
}

} // namespace

StoredFile readStored(const QString& path)
{
    StoredFile found;
    found.isLink = QFileInfo(path).isSymLink();
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        found.state = errno == ENOENT || errno == ENOTDIR ? StoredFile::State::Missing : StoredFile::State::Foreign;
        return found;
    }
    found.state = StoredFile::State::Foreign;
    found.mode = status.st_mode & 07777U;
    // Asked before it is opened: opening is an action of its own for some devices.
    if (!S_ISREG(status.st_mode))
        return found;
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen())
        return found;
    if (status.st_size > ZepaRuleDocument::largestProtected)
        found.state = StoredFile::State::TooLarge;
    else if (readAll(file, found.content))
        found.state = StoredFile::State::Readable;
    else
        found.content.clear();
    return found;
}

bool existsStored(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

bool replaceStored(const QString& path, const QByteArray& content, const QString& aside, unsigned int mode)
{
    const QByteArray asideName = QFile::encodeName(aside);
    {
        Descriptor file(aside, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
        if (file.isOpen() && file.write(content) && ::fchmod(file.number(), mode) == 0 && ::fsync(file.number()) == 0 &&
            file.close() && ::rename(asideName.constData(), QFile::encodeName(path).constData()) == 0)
            return syncFolderOf(path);
    }
    ::unlink(asideName.constData());
    return false;
}

bool overwriteStored(const QString& path, const QByteArray& content)
{
    Descriptor file(path, O_WRONLY | O_TRUNC | O_NONBLOCK);
    return file.isOpen() && file.write(content) && ::fsync(file.number()) == 0 && file.close();
}

bool renameStored(const QString& from, const QString& to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return false;
    return syncFolderOf(to) && syncFolderOf(from);
}

bool syncStored(const QString& path)
{
    const Descriptor file(path, O_RDONLY | O_NONBLOCK);
    return file.isOpen() && ::fsync(file.number()) == 0 && syncFolderOf(path);
}

void makePrivateStored(const QString& path)
{
    const Descriptor file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || status.st_uid != ::geteuid() ||
        (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)))
        return;
    ::fchmod(file.number(), status.st_mode & 07700U);
}

} // namespace zepa
