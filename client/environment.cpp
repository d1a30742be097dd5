// SPDX-License-Identifier: Apache-2.0
#include "client/environment.h"

#include "platform/bus/bus_address.h"

#include <zepa_platform/session_bus.h>

#include <QGuiApplication>

namespace zepa {

namespace {

/// Qt waits for a bus that accepts and says nothing, for ever: in its status icon, for screen readers. So one that does
/// not answer counts as none, for everybody in this process.
void passOverSilentBus()
{
    constexpr int patience = 2000; // milliseconds
    // A bus elsewhere in the network is left to those who find their way there.
    if (!bus::sessionBusAddresses().isEmpty() && !zepaSessionBusAnswers(patience))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

} // namespace

void prepareEnvironment(bool needsDisplay)
{
    // With TZ unset the C library looks at /etc/localtime whenever somebody asks for the time of day, which the
    // library does for every remembered posting: twenty times as slow.
    if (!qEnvironmentVariableIsSet("TZ"))
        qputenv("TZ", ":/etc/localtime");
    passOverSilentBus();

    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    const bool hasX = !qEnvironmentVariableIsEmpty("DISPLAY");
    const bool hasWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!needsDisplay || (!hasX && !hasWayland))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (!hasWayland)
        // The display may be named and yet not be there: Qt would end the program.
        qputenv("QT_QPA_PLATFORM", "xcb;offscreen");
}

bool hasDisplay()
{
    return QGuiApplication::platformName() != QStringLiteral("offscreen");
}

} // namespace zepa
