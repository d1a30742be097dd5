// SPDX-License-Identifier: Apache-2.0
#include "small_disk.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

void writeTo(const char* path, const QByteArray& text)
{
    QFile file(QFile::decodeName(path));
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write(text);
}

bool enterNamespace()
{
    if (unshare(CLONE_NEWNS) == 0)
        return true;
    const QByteArray user = QByteArray::number(getuid());
    const QByteArray group = QByteArray::number(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    writeTo("/proc/self/setgroups", "deny");
    writeTo("/proc/self/uid_map", "0 " + user + " 1");
    writeTo("/proc/self/gid_map", "0 " + group + " 1");
    return true;
}

} // namespace

SmallDisk::~SmallDisk()
{
    if (!m_folder.isEmpty())
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

QString SmallDisk::mountAt(const QString& folder)
{
    if (!enterNamespace() || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=64k") != 0)
        return u"a disk of 64 KiB cannot be mounted here: %1"_s.arg(QString::fromLocal8Bit(strerror(errno)));
    m_folder = folder;
    return {};
}

void SmallDisk::fill() const
{
    QFile filler(m_folder + u"/filler"_s);
    if (!filler.open(QIODevice::Append | QIODevice::Unbuffered))
        return;
    for (const qsizetype size : {4096, 1}) {
        const QByteArray bytes(size, 'x');
        while (filler.write(bytes) == size) {
        }
    }
}
