// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QMetaType>

QT_BEGIN_NAMESPACE
class QDBusArgument;
class QImage;
QT_END_NAMESPACE

namespace zepa::freedesktop {

/// The "image-data" hint, (iiibiiay): 8 bits for each of red, green, blue and alpha, rows without padding.
struct NotifyImage
{
    int width = 0; ///< in pixels, as height
    int height = 0;
    QByteArray pixels; ///< 4 * width * height bytes

    bool isNull() const { return pixels.isEmpty(); }
    /// Null for a null image.
    static NotifyImage fromImage(const QImage& image);

    friend bool operator==(const NotifyImage&, const NotifyImage&) = default;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifyImage& image);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifyImage& image);

} // namespace zepa::freedesktop

Q_DECLARE_METATYPE(zepa::freedesktop::NotifyImage)
