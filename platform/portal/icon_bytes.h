// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QCache>
#include <QImage>

namespace zepa::portal {

/// Icons as the files that the portal wants, encoded once for each picture.
class IconBytes
{
public:
    /// What is kept, in bytes. The least recently used go first.
    static constexpr qsizetype byteLimit = qsizetype(1024) * 1024;

    IconBytes() : m_encoded(byteLimit) {}

    /// A PNG file; empty for a null picture.
    QByteArray bytesOf(const QImage& icon);

private:
    QCache<qint64, QByteArray> m_encoded; ///< by QImage::cacheKey()
};

} // namespace zepa::portal
