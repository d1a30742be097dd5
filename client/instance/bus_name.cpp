// SPDX-License-Identifier: Apache-2.0
#include "client/instance/bus_name.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace zepa::instance {

QByteArray busName(const QString& settingsFolder)
{
    const QFileInfo folder(settingsFolder);
    QString path = folder.canonicalFilePath();
    if (path.isEmpty())
        path = QDir::cleanPath(folder.absoluteFilePath());
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1);
    return "zepa.Client.Folder_" + hash.toHex();
}

} // namespace zepa::instance
