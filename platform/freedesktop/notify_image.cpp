// SPDX-License-Identifier: Apache-2.0
#include "notify_image.h"

#include <QDBusArgument>
#include <QImage>

namespace zepa::freedesktop {

namespace {

constexpr int bitsPerSample = 8;
constexpr int channels = 4;

} // namespace

NotifyImage NotifyImage::fromImage(const QImage& image)
{
    if (image.isNull())
        return {};
    // The one format of Qt's whose rows are never padded: services refuse padded rows.
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    return {rgba.width(), rgba.height(),
            QByteArray(reinterpret_cast<const char*>(rgba.constBits()), rgba.sizeInBytes())};
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifyImage& image)
{
    argument.beginStructure();
    argument << image.width << image.height << channels * image.width << true << bitsPerSample << channels
             << image.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifyImage& image)
{
    int rowBytes = 0;
    int bits = 0;
    int samples = 0;
    bool hasAlpha = false;
    argument.beginStructure();
    argument >> image.width >> image.height >> rowBytes >> hasAlpha >> bits >> samples >> image.pixels;
    argument.endStructure();
    return argument;
}

} // namespace zepa::freedesktop
