// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/session_bus.h>

#include "bus/address.h"
#include "bus/paced_handshake.h"
#include "bus/transport.h"

#include <QDeadlineTimer>

#include <poll.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

using zepa::bus::PacedHandshake;

/// False when it failed.
bool advance(std::unique_ptr<PacedHandshake>& handshake, sd_bus* bus)
{
    const PacedHandshake::State state = handshake->advance();
    if (state != PacedHandshake::State::Over)
        return state != PacedHandshake::State::Failed;
    const bool isConnected = handshake->connectDirectly(sd_bus_get_fd(bus));
    handshake.reset();
    return isConnected;
}

bool answers(sd_bus* bus, std::unique_ptr<PacedHandshake>& handshake, const QDeadlineTimer& limit)
{
    while (sd_bus_is_open(bus) > 0 && sd_bus_is_ready(bus) == 0 && !limit.hasExpired()) {
        if (handshake && !advance(handshake, bus))
            return false;
        const int result = sd_bus_process(bus, nullptr);
        if (result < 0)
            return false;
        if (result > 0)
            continue;
        const auto [relay, awaited] = handshake ? handshake->awaitedSockets() : std::array<int, 2>{-1, -1};
        std::array<pollfd, 3> sockets = {
            pollfd{sd_bus_get_fd(bus), static_cast<short>(std::max(0, sd_bus_get_events(bus))), 0},
            pollfd{relay, POLLIN, 0}, pollfd{awaited, POLLIN, 0}};
        poll(sockets.data(), sockets.size(), static_cast<int>(limit.remainingTime()));
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
        std::unique_ptr<PacedHandshake> handshake;
        sd_bus* bus = zepa::bus::startBus(address, handshake);
        if (bus == nullptr)
            continue;
        // A library goes to the first that listens, whether it answers or not.
        const bool answered = answers(bus, handshake, limit);
        sd_bus_close_unref(bus);
        return answered;
    }
    return false;
}
