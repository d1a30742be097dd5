// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/bus_address.h"

namespace zepa::bus {

/// Connects to a bus and says the first line of the handshake. Never waits: not for a bus whose queue of new
/// connections is full either. A non-blocking socket, which the caller closes; -1 when nobody listens.
int greetBus(const BusAddress& address);

enum class Greeting {
    NotYet,   ///< no whole line has come
    Answered, ///< whatever it says, it is alive
    Refused   ///< it hung up
};

/// What has come from a bus that was greeted. Never waits.
Greeting hearBus(int socket);

} // namespace zepa::bus
