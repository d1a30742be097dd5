// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/session_bus.h>

#include "bus/bus_greeting.h"

#include <QDeadlineTimer>

#include <poll.h>
#include <unistd.h>

namespace {

using zepa::bus::Greeting;

bool answers(int socket, int milliseconds)
{
    const QDeadlineTimer limit(milliseconds);
    Greeting heard = Greeting::NotYet;
    while (heard == Greeting::NotYet && !limit.hasExpired()) {
        pollfd readable{socket, POLLIN, 0};
        if (poll(&readable, 1, static_cast<int>(limit.remainingTime())) > 0)
            heard = zepa::bus::hearBus(socket);
    }
    return heard == Greeting::Answered;
}

} // namespace

bool zepaSessionBusAnswers(int milliseconds)
{
    const QList<zepa::bus::BusAddress> addresses = zepa::bus::sessionBusAddresses();
    for (const zepa::bus::BusAddress& address : addresses) {
        const int socket = zepa::bus::greetBus(address);
        if (socket < 0)
            continue;
        // A library goes to the first that listens, whether it answers or not.
        const bool answered = answers(socket, milliseconds);
        close(socket);
        return answered;
    }
    return false;
}
