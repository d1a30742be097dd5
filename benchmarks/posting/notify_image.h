// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QMetaType>

QT_BEGIN_NAMESPACE
class QDBusArgument;
QT_END_NAMESPACE

/// The "image-data" hint, (iiibiiay): 8 bits for each of red, green, blue and alpha, rows without padding.
struct NotifyImage
{
    QImage image; ///< Format_RGBA8888, or null

    /// Null for a null image; shares the pixels of one that has the format.
    static NotifyImage fromImage(const QImage& image) { return {image.convertToFormat(QImage::Format_RGBA8888)}; }
    bool isNull() const { return image.isNull(); }
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifyImage& hint);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifyImage& hint);

Q_DECLARE_METATYPE(NotifyImage)
