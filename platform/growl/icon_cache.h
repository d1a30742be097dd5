// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "popup_service.h"

#include <CoreFoundation/CoreFoundation.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QCache>
#include <QImage>

namespace zepa::growl {

/// Icons as pop-ups carry them, decoded once for each content.
class IconCache
{
public:
    /// What is kept in bytes: what icons are known by, and decoded icons, together. The least recently used go first.
    static constexpr qsizetype byteLimit = qsizetype(8) * 1024 * 1024;
    /// A picture file up to this size is known by its bytes, a larger one by their digest: a photograph's file may be
    /// larger than the whole cache, its icon never is. In bytes.
    static constexpr qsizetype longestKey = qsizetype(32) * 1024;
    /// An icon that declares more pixels than this is not decoded.
    static constexpr qint64 pixelLimit = qint64(4096) * 4096;

    IconCache() : m_icons(byteLimit), m_digests(byteLimit) {}

    /// The icon in `encoded`, a picture file's bytes, as PopupPosting wants it: scaled down if need be, keeping its
    /// aspect. Null for none, for broken data and for an icon that is too large.
    QImage icon(QByteArrayView encoded);
    /// The same. What was asked for before is found without a look at its bytes, which never change, as long as others
    /// hold it too: the cache keeps nobody's data alive for longer than until the next call with other data.
    QImage icon(CFDataRef encoded);

    /// For tests: how many pictures were decoded so far, and what is kept in bytes.
    int decodedCount() const { return m_decodedCount; }
    qsizetype byteCount() const { return m_icons.totalCost(); }
    /// For tests: of how many data a reference is held.
    qsizetype heldCount() const { return m_digests.size(); }

private:
    /// The digest of data that is held, so that no other data gets its address.
    struct Digest
    {
        Digest(CFDataRef owner, const QByteArray& bytes) : data(owner), digest(bytes) { CFRetain(data); }
        ~Digest() { CFRelease(data); }
        Q_DISABLE_COPY_MOVE(Digest)

        CFDataRef data;
        QByteArray digest;
    };

    QImage iconFor(QByteArray key, const QByteArray& encoded);
    void dropAbandonedData();

    QCache<QByteArray, QImage> m_icons;
    QCache<CFDataRef, Digest> m_digests; ///< of large files that somebody else holds; they count in bytes
    int m_decodedCount = 0;
};

} // namespace zepa::growl
