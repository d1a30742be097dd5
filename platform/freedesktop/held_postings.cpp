// SPDX-License-Identifier: Apache-2.0
#include "held_postings.h"

#include <algorithm>
#include <utility>

namespace zepa::freedesktop {

namespace {

/// Names are shared between postings.
qsizetype bytesOf(const growl::PopupPosting& posting)
{
    constexpr auto unit = static_cast<qsizetype>(sizeof(QChar));
    return static_cast<qsizetype>(sizeof(HeldPostings::Held)) + unit * (posting.title.size() + posting.text.size());
}

} // namespace

void HeldPostings::add(Held held)
{
    m_bytes += bytesOf(held.posting);
    const QImage& icon = held.posting.icon;
    if (!icon.isNull() && ++m_icons[icon.cacheKey()] == 1)
        m_bytes += icon.sizeInBytes();
    // Almost always the last. One that comes back is older.
    const auto isOlder = [&held](const Held& other) { return other.ticket < held.ticket; };
    m_held.insert(std::find_if(m_held.rbegin(), m_held.rend(), isOlder).base(), std::move(held));
}

HeldPostings::Held HeldPostings::takeFirst()
{
    Held held = std::move(m_held.front());
    m_held.pop_front();
    m_bytes -= bytesOf(held.posting);
    const QImage& icon = held.posting.icon;
    if (!icon.isNull() && --m_icons[icon.cacheKey()] == 0) {
        m_icons.remove(icon.cacheKey());
        m_bytes -= icon.sizeInBytes();
    }
    return held;
}

} // namespace zepa::freedesktop
