// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/arg.h"

#include <QList>

namespace zepa {

/// Names the open chat window of the contact in a posting's arguments as the one that asks for attention; none in
/// particular when there is no contact, or no window.
void nameChatForAttention(const QList<ZepaArg>& args);

} // namespace zepa
