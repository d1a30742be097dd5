// SPDX-License-Identifier: Apache-2.0
#include "icon_bytes.h"

#include <QBuffer>

namespace zepa::portal {

QByteArray IconBytes::bytesOf(const QImage& icon)
{
    if (icon.isNull())
        return {};
    if (const QByteArray* known = m_encoded.object(icon.cacheKey()))
        return *known;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!icon.save(&buffer, "PNG"))
        return {};
    m_encoded.insert(icon.cacheKey(), new QByteArray(bytes), bytes.size());
    return bytes;
}

} // namespace zepa::portal
