// SPDX-License-Identifier: Apache-2.0
#include "held_postings.h"

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

void HeldPostings::append(Held held)
{
    m_bytes += bytesOf(held.posting);
    const QImage& icon = held.posting.icon;
    if (!icon.isNull() && ++m_icons[icon.cacheKey()] == 1)
        m_bytes += icon.sizeInBytes();
    m_held.push_back(std::move(held));
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
