// SPDX-License-Identifier: Apache-2.0
#include "icon_cache.h"

#include <QBuffer>
#include <QCryptographicHash>
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

/// Shares the bytes of a small file.
QByteArray keyOf(const QByteArray& encoded)
{
    if (encoded.size() <= IconCache::longestKey)
        return encoded;
    return QCryptographicHash::hash(encoded, QCryptographicHash::Blake2b_256);
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
    const QByteArray bytes = QByteArray::fromRawData(encoded.data(), encoded.size());
    QByteArray key = keyOf(bytes);
    if (const NotifyImage* known = m_icons.object(key))
        return *known;
    ++m_decodedCount;
    // What is kept must not point at the caller's bytes.
    key.detach();
    auto decoded = std::make_unique<NotifyImage>(decode(bytes));
    NotifyImage result = *decoded;
    m_icons.insert(key, decoded.release(), key.size() + result.pixels.size());
    return result;
}

} // namespace zepa::freedesktop
