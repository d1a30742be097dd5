// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QImage>
#include <QString>

#include <string>

/// The picture as the library would send it: at most 128 pixels a side, four bytes a pixel, rows without padding.
/// Decoded once for each path; a null image for none.
inline const QImage& preparedPicture(const std::string& path)
{
    constexpr int longestSide = 128;
    static QHash<QString, QImage> pictures;
    QImage& picture = pictures[QString::fromStdString(path)];
    if (picture.isNull() && !path.empty()) {
        picture.load(QString::fromStdString(path));
        if (picture.width() > longestSide || picture.height() > longestSide)
            picture = picture.scaled(longestSide, longestSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.convertTo(QImage::Format_RGBA8888);
    }
    return picture;
}
