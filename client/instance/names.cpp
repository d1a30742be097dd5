// SPDX-License-Identifier: Apache-2.0
#include "client/instance/names.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace zepa::instance {

QString busName(const QString& settingsFolder)
{
    const QFileInfo folder(settingsFolder);
    QString path = folder.canonicalFilePath();
    if (path.isEmpty())
        path = QDir::cleanPath(folder.absoluteFilePath());
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("zepa.Client.Folder_") + QString::fromLatin1(hash.toHex());
}

} // namespace zepa::instance
