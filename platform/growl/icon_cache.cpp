// SPDX-License-Identifier: Apache-2.0
#include "icon_cache.h"

#include "cf_values.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QImageReader>
#include <memory>

namespace zepa::growl {

namespace {

QSize shownSize(QSize size)
{
    if (size.width() <= PopupService::iconSide && size.height() <= PopupService::iconSide)
        return size;
    const QSize bounds(PopupService::iconSide, PopupService::iconSide);
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

QImage decode(QByteArray encoded)
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
    // A picture of two colours would be scaled to black and white.
    if (shown != image.size())
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                    .scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image.convertToFormat(QImage::Format_RGBA8888);
}

} // namespace

QImage IconCache::icon(QByteArrayView encoded)
{
    if (encoded.isEmpty())
        return {};
    const QByteArray bytes = QByteArray::fromRawData(encoded.data(), encoded.size());
    return iconFor(keyOf(bytes), bytes);
}

QImage IconCache::icon(CFDataRef encoded)
{
    if (encoded == nullptr)
        return {};
    const QByteArrayView view = bytesOf(encoded);
    const QByteArray bytes = QByteArray::fromRawData(view.data(), view.size());
    if (const Digest* known = m_digests.object(encoded))
        return iconFor(known->digest, bytes);
    // Whoever comes with other data has perhaps let go of earlier ones.
    dropAbandonedData();
    if (view.size() <= longestKey)
        return icon(view);
    const QByteArray digest = keyOf(bytes);
    m_digests.insert(encoded, std::make_unique<Digest>(encoded, digest).release(), bytes.size());
    return iconFor(digest, bytes);
}

QImage IconCache::iconFor(QByteArray key, const QByteArray& bytes)
{
    if (const QImage* known = m_icons.object(key))
        return *known;
    ++m_decodedCount;
    // What is kept must not point at the caller's bytes.
    key.detach();
    auto decoded = std::make_unique<QImage>(decode(bytes));
    QImage result = *decoded;
    m_icons.insert(key, decoded.release(), key.size() + result.sizeInBytes());
    return result;
}

/// What nobody else holds would count beside what its former holder keeps instead of it.
void IconCache::dropAbandonedData()
{
    const QList<CFDataRef> held = m_digests.keys();
    for (const CFDataRef data : held) {
        if (CFGetRetainCount(data) == 1)
            m_digests.remove(data);
    }
}

} // namespace zepa::growl
