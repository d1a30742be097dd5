// SPDX-License-Identifier: Apache-2.0
#include "core/regular_file.h"

#include <QByteArray>
#include <QFileInfo>
#include <QImageReader>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A descriptor of the file as QFile would open it, except that it does not wait and truncates nothing; -1 on failure.
int openWithoutWaiting(const QByteArray& name, bool forWriting)
{
    constexpr mode_t readAndWriteForAll = 0666;
    const int access = forWriting ? O_WRONLY | O_CREAT : O_RDONLY;
    int descriptor = -1;
    do
        descriptor = open(name.constData(), access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, readAndWriteForAll);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

} // namespace

bool openRegularFile(QFile& file, QIODevice::OpenMode mode)
{
    const QFileInfo info(file.fileName());
    if (!info.isNativePath())
        return file.open(mode);
    // With the folder that a search path ("icons:a.png") led to.
    const QString path = info.filePath();
    if (path.contains(QChar::Null))
        return false;
    const QByteArray name = QFile::encodeName(path);

    // Asked by name first, since opening a pipe or a device may already do something; and once more of what was opened,
    // since the name may lead elsewhere by then.
    struct stat found = {};
    if (stat(name.constData(), &found) == 0 && !S_ISREG(found.st_mode))
        return false;
    const bool forWriting = mode.testFlag(QIODevice::WriteOnly);
    const int descriptor = openWithoutWaiting(name, forWriting);
    if (descriptor < 0)
        return false;
    if (fstat(descriptor, &found) == 0 && S_ISREG(found.st_mode) && (!forWriting || ftruncate(descriptor, 0) == 0) &&
        file.open(descriptor, mode, QFileDevice::AutoCloseHandle))
        return true;
    close(descriptor);
    return false;
}

QString openPictureFile(QFile& file, const QString& path)
{
    file.setFileName(path);
    if (openRegularFile(file, QIODevice::ReadOnly))
        return path;
    const QList<QByteArray> endings = QImageReader::supportedImageFormats();
    for (const QByteArray& ending : endings) {
        QString name = path + QLatin1Char('.') + QLatin1String(ending);
        file.setFileName(name);
        if (openRegularFile(file, QIODevice::ReadOnly))
            return name;
    }
    return {};
}
