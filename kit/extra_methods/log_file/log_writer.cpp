// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_writer.h"

#include "kit/files/private_folder.h"
#include "kit/files/regular_file.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString whyNot(int error)
{
    return QString::fromLocal8Bit(std::strerror(error)); // NOLINT(concurrency-mt-unsafe): one thread
}

QString whyNot(const RegularFile& file)
{
    const bool isForeign = file.state() == RegularFile::State::Link || file.state() == RegularFile::State::NotRegular;
    return isForeign ? u"is "_s + file.reason() : file.reason();
}

/// FILE.1 and so on make room for the file; the oldest goes. False when the file is still there.
bool rotate(const LogTarget& target)
{
    const auto older = [&target](int number) {
        return number == 0 ? QFile::encodeName(target.file)
                           : QFile::encodeName(target.file + u'.' + QString::number(number));
    };
    if (target.olderFiles == 0)
        return ::unlink(older(0).constData()) == 0;
    for (int number = target.olderFiles; number > 1; --number)
        std::rename(older(number - 1).constData(), older(number).constData());
    return std::rename(older(0).constData(), older(1).constData()) == 0;
}

bool isStillAt(const struct stat& one, const QByteArray& path)
{
    struct stat other = {};
    return ::lstat(path.constData(), &other) == 0 && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Half a line would swallow the next one: `before` is the size to go back to, -1 when another program may have
/// written meanwhile.
QString write(int descriptor, const QByteArray& line, off_t before)
{
    const ssize_t written = ::write(descriptor, line.constData(), static_cast<size_t>(line.size()));
    if (written == line.size())
        return {};
    const int error = written < 0 ? errno : ENOSPC;
    if (written > 0 && before >= 0 && ::ftruncate(descriptor, before) != 0)
        return whyNot(errno);
    return whyNot(error);
}

} // namespace

QString appendToLog(const LogTarget& target, const QByteArray& line)
{
    makePrivateFolder(QFileInfo(target.file).absolutePath());
    const QByteArray path = QFile::encodeName(target.file);
    // Another program may take the file away between our opening and our lock, and so do we when it is full.
    constexpr int mostAttempts = 8;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const RegularFile file = RegularFile::openToAppend(target.file, Links::Refuse);
        if (!file.isOpen())
            return whyNot(file);
        struct stat state = file.status();
        // Whoever holds the lock writes one line and may rotate; without it, we only add ours.
        if (::flock(file.descriptor(), LOCK_EX | LOCK_NB) != 0)
            return write(file.descriptor(), line, -1);
        if (!isStillAt(state, path))
            continue;
        if (::fstat(file.descriptor(), &state) != 0)
            return whyNot(errno);
        if (state.st_size == 0 || state.st_size + line.size() <= target.mostBytes)
            return write(file.descriptor(), line, state.st_size);
        if (!rotate(target))
            return whyNot(errno);
    }
    return u"is taken away again and again"_s;
}

} // namespace zepa
