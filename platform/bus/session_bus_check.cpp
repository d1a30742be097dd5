// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/session_bus.h>

#include "bus/address.h"
#include "bus/transport.h"

#include <QDeadlineTimer>

#include <poll.h>
#include <systemd/sd-bus.h>

#include <algorithm>

namespace {

bool answers(sd_bus* bus, const QDeadlineTimer& limit)
{
    while (sd_bus_is_open(bus) > 0 && sd_bus_is_ready(bus) == 0 && !limit.hasExpired()) {
        const int result = sd_bus_process(bus, nullptr);
        if (result < 0)
            return false;
        if (result > 0)
            continue;
        pollfd socket{sd_bus_get_fd(bus), static_cast<short>(std::max(0, sd_bus_get_events(bus))), 0};
        poll(&socket, 1, static_cast<int>(limit.remainingTime()));
    }
    return sd_bus_is_ready(bus) > 0;
}

} // namespace

bool zepaHasSessionBusAddress()
{
    return !zepa::bus::configuredAddresses().isEmpty();
}

void zepaSetSessionBusAddress(const char* address)
{
    zepa::bus::setConfiguredAddress(address);
}

bool zepaSessionBusAnswers(int milliseconds)
{
    const QDeadlineTimer limit(milliseconds);
    const QList<QByteArray> addresses = zepa::bus::configuredAddresses();
    for (const QByteArray& address : addresses) {
        sd_bus* bus = zepa::bus::startBus(address);
        if (bus == nullptr)
            continue;
        // A library goes to the first that listens, whether it answers or not.
        const bool answered = answers(bus, limit);
        sd_bus_close_unref(bus);
        return answered;
    }
    return false;
}
