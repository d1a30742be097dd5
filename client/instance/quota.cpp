// SPDX-License-Identifier: Apache-2.0
#include "client/instance/quota.h"

namespace zepa::instance {

Quota::Answer Quota::take(const QString& caller)
{
    if (m_takenBy.value(caller) >= m_mostPerCaller)
        return Answer::TooManyOfCaller;
    if (m_taken >= m_most)
        return Answer::TooMany;
    ++m_taken;
    ++m_takenBy[caller];
    return Answer::Taken;
}

void Quota::giveBack(const QString& caller)
{
    const auto taken = m_takenBy.find(caller);
    if (taken == m_takenBy.end())
        return;
    --m_taken;
    if (--*taken == 0)
        m_takenBy.erase(taken);
}

} // namespace zepa::instance
