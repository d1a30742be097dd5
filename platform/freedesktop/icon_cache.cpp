// SPDX-License-Identifier: Apache-2.0
#include "icon_cache.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <memory>

namespace zepa::freedesktop {

namespace {

QSize shownSize(QSize size)
{
    if (size.width() <= IconCache::longestSide && size.height() <= IconCache::longestSide)
        return size;
    const QSize bounds(IconCache::longestSide, IconCache::longestSide);
    // A hairline must not be scaled to nothing.
    return size.scaled(bounds, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

NotifyImage decode(QByteArray encoded)
{
    QBuffer buffer(&encoded);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // Asked before anything is decoded: a few bytes can declare gigabytes.
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > IconCache::pixelLimit)
        return {};
    QImage image = reader.read();
    if (image.isNull())
        return {};
    const QSize shown = shownSize(image.size());
    if (shown != image.size())
        image = image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return NotifyImage::fromImage(image);
}

} // namespace

NotifyImage IconCache::icon(QByteArrayView encoded)
{
    if (encoded.isEmpty())
        return {};
    if (const NotifyImage* known = m_icons.object(QByteArray::fromRawData(encoded.data(), encoded.size())))
        return *known;
    ++m_decodedCount;
    const QByteArray key = encoded.toByteArray();
    auto decoded = std::make_unique<NotifyImage>(decode(key));
    NotifyImage result = *decoded;
    m_icons.insert(key, decoded.release(), key.size() + result.pixels.size());
    return result;
}

} // namespace zepa::freedesktop
