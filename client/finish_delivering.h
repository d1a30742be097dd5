// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa {

class Client;

/// Waits until what was announced is with the desktop: pop-ups sent (six seconds at most), sounds played (ten
/// seconds at most), events read out (half a minute at most). Events are handled meanwhile. To be called before a
/// program ends.
void finishDelivering(const Client& client);

} // namespace zepa
