// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/theme_pictures.h"

#include "host/settings_manager.h"
#include "kit/files/regular_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

bool isInside(const QString& path, const QString& folder)
{
    return !folder.isEmpty() && path.size() > folder.size() + 1 && path.startsWith(folder) &&
           path.at(folder.size()) == u'/';
}

/// Formats that cannot refer to other files, as a drawing in SVG can.
bool isPlainPicture(const QByteArray& format)
{
    static const QList<QByteArray> known{"png", "jpeg", "jpg", "gif", "bmp"};
    return known.contains(format);
}

} // namespace

QStringList currentThemeFolders()
{
    const ZepaSettingsManager* settings = ZepaSettingsManager::getInstance();
    return {settings->getCurrentThemeDir(), settings->getCurrentRosterThemeDir(), settings->getCurrentSoundThemeDir()};
}

QString pictureFile(const QString& address, const QStringList& themeFolders)
{
    if (address.startsWith(u"qrc:/"_s)) {
        const QString built = QDir::cleanPath(address.sliced(3));
        // Enough ".." lead out of what is built in and to a file of the working directory.
        return built.startsWith(u":/"_s) && QFileInfo(built).isFile() ? built : QString();
    }
    // Qt also has ":/" for what is built in; here a path is one of the file system.
    if (!QDir::isAbsolutePath(address) || address.startsWith(u':') || address.contains(QChar::Null))
        return {};
    const QString path = QDir::cleanPath(address);
    for (const QString& themeFolder : themeFolders) {
        const QString folder = QDir::cleanPath(themeFolder);
        const QString realFolder = QFileInfo(folder).canonicalFilePath();
        // The words first: merely asking about a path can reach for a network drive.
        if (!isInside(path, folder) && !isInside(path, realFolder))
            continue;
        QString real = QFileInfo(path).canonicalFilePath();
        if (isInside(real, realFolder) && QFileInfo(real).isFile())
            return real;
    }
    return {};
}

QImage readPicture(const QString& file, const QSize& most)
{
    QFile device(file);
    // Pictures built into the program are Qt resources, not files on disk.
    const bool isOpen = file.startsWith(u':') ? device.open(QIODevice::ReadOnly)
                                              : RegularFile::openToRead(file, largestPictureFile).moveTo(device);
    if (!isOpen)
        return {};
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    if (!isPlainPicture(reader.format()))
        return {};
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > mostPicturePixels)
        return {};
    // A picture of two colours would be scaled to black and white.
    QImage picture = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull() || (picture.width() <= most.width() && picture.height() <= most.height()))
        return picture;
    const QSize fitting = picture.size().scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QIcon themeIcon(const QString& file)
{
    constexpr QSize most(256, 256);
    const QImage picture = readPicture(file, most);
    return picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture));
}

} // namespace zepa
