// SPDX-License-Identifier: Apache-2.0
#include "kit/files/private_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace zepa {

bool makePrivateFolder(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return false;
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (QFileInfo(clean).isDir())
        return true;
    const QString parent = QFileInfo(clean).path();
    if (parent == clean || !makePrivateFolder(parent))
        return false;
    const QByteArray name = QFile::encodeName(clean);
    constexpr mode_t forOwner = 0700;
    // The umask may have taken something from the owner, too.
    if (::mkdir(name.constData(), forOwner) == 0)
        return ::fchmodat(AT_FDCWD, name.constData(), forOwner, AT_SYMLINK_NOFOLLOW) == 0;
    return errno == EEXIST && QFileInfo(clean).isDir();
}

} // namespace zepa
