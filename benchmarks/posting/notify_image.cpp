// SPDX-License-Identifier: Apache-2.0
#include "notify_image.h"

#include <QByteArray>
#include <QDBusArgument>

namespace {

constexpr int bitsPerSample = 8;
constexpr int channels = 4;

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const NotifyImage& hint)
{
    // The one format of Qt's whose rows are never padded: services refuse padded rows.
    const QImage& image = hint.image;
    argument.beginStructure();
    argument << image.width() << image.height() << channels * image.width() << true << bitsPerSample << channels
             << QByteArray::fromRawData(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifyImage& hint)
{
    int width = 0;
    int height = 0;
    int rowBytes = 0;
    int bits = 0;
    int samples = 0;
    bool hasAlpha = false;
    QByteArray pixels;
    argument.beginStructure();
    argument >> width >> height >> rowBytes >> hasAlpha >> bits >> samples >> pixels;
    argument.endStructure();
    hint.image = QImage(reinterpret_cast<const uchar*>(pixels.constData()), width, height, QImage::Format_RGBA8888);
    hint.image.detach();
    return argument;
}
