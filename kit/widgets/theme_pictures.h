// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QIcon>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

/// Pictures that a message may name. Messages come from strangers: what is not allowed here is not even looked at.
namespace zepa {

/// The largest picture file that is read, in bytes.
inline constexpr qint64 largestPictureFile = qint64{4} * 1024 * 1024;
/// The most pixels that are decoded; a picture that says it has more is not read.
inline constexpr qint64 mostPicturePixels = qint64{4} * 1024 * 1024;

/// The folders of the themes that are current now, from the settings service.
ZEPA_KIT_EXPORT QStringList currentThemeFolders();

/// The file to read for `address`, or an empty text when it may not be shown. Allowed are "qrc:/..." (built into the
/// program) and absolute paths of regular files that lie in one of `themeFolders`, also after every symbolic link on
/// the way was followed. The file system is asked only about paths inside of these folders.
ZEPA_KIT_EXPORT QString pictureFile(const QString& address, const QStringList& themeFolders);

/// The picture in `file`, scaled down to fit into `most` (in the picture's pixels), never up. Null when it is no
/// PNG, JPEG, GIF or BMP picture, or is too large by the limits above.
ZEPA_KIT_EXPORT QImage readPicture(const QString& file, const QSize& most);

/// The same as an icon, which Qt would load later and without any of these limits. Null when there is no picture.
ZEPA_KIT_EXPORT QIcon themeIcon(const QString& file);

} // namespace zepa
