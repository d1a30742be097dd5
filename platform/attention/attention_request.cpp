// SPDX-License-Identifier: Apache-2.0
#include "attention/attention_request.h"

namespace attention {

void AttentionRequest::request(bool applicationIsActive)
{
    if (applicationIsActive)
        return;
    m_requested = true;
    m_effects.ask();
}

void AttentionRequest::applicationActivated()
{
    if (!m_requested)
        return;
    m_requested = false;
    m_effects.withdraw();
}

} // namespace attention
