// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/posting/answer_token.h"
#include "client/posting/posting.h"
#include "client/posting/report.h"

#include <functional>

namespace zepa {

class Client;

/// Announces the event: the one way by which everything in the client posts. When the report says that a pop-up
/// waits, `answered` (which may be empty) is called once: later, from the event loop, or in the moment in which the
/// client ends.
Report announce(Client& client, const Posting& posting, std::function<void(Answer)> answered = {});

/// Waits until what was announced is with the desktop: pop-ups sent (six seconds at most), sounds played (ten
/// seconds at most), events read out (half a minute at most). Events are handled meanwhile. To be called before a
/// program ends.
void finishDelivering(const Client& client);

} // namespace zepa
