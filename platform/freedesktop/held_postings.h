// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <QHash>

#include <deque>

namespace zepa::freedesktop {

/// Postings that wait, in the order of their tickets. The queue counts what they keep in memory: texts, and each icon
/// once, since equal icons share their pixels.
class HeldPostings
{
public:
    static constexpr std::size_t countLimit = 1000;
    static constexpr qsizetype byteLimit = qsizetype(16) * 1024 * 1024;

    struct Held
    {
        growl::PopupPosting posting;
        growl::Ticket ticket = 0;
        qint64 since = 0; ///< in the caller's time
    };

    void add(Held held);
    Held takeFirst();
    const Held& first() const { return m_held.front(); }
    bool isEmpty() const { return m_held.empty(); }
    /// Above a limit: somebody has to take the first.
    bool isOverfull() const { return m_held.size() > countLimit || m_bytes > byteLimit; }
    qsizetype byteCount() const { return m_bytes; }

private:
    std::deque<Held> m_held;
    QHash<qint64, int> m_icons; ///< how many postings share an icon, by its cacheKey()
    qsizetype m_bytes = 0;
};

} // namespace zepa::freedesktop
