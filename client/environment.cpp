// SPDX-License-Identifier: Apache-2.0
#include "client/environment.h"

#include "kit/extra_methods/child_environment.h"

#include <zepa_platform/session_bus.h>

#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

constexpr const char* busVariable = "DBUS_SESSION_BUS_ADDRESS";

/// Qt waits for a bus that accepts and says nothing, for ever: in its status icon, for screen readers. So one that does
/// not answer counts as none for Qt, and the platform layer, which never waits, finds it when it comes. False when it
/// does not answer.
bool hideSilentBusFromQt()
{
    constexpr int limit = 2000; // milliseconds
    // A bus elsewhere in the network is left to those who find their way there.
    if (!zepaHasSessionBusAddress() || zepaSessionBusAnswers(limit))
        return true;
    zepaSetSessionBusAddress(qgetenv(busVariable).constData());
    setOwnVariable(busVariable, "disabled:");
    return false;
}

} // namespace

bool prepareEnvironment(bool needsDisplay)
{
    // With TZ unset the C library looks at /etc/localtime whenever somebody asks for the time of day, which the
    // library does for every remembered posting: twenty times as slow.
    if (!qEnvironmentVariableIsSet("TZ"))
        setOwnVariable("TZ", ":/etc/localtime");
    const bool busAnswers = hideSilentBusFromQt();

    constexpr const char* platform = "QT_QPA_PLATFORM";
    if (qEnvironmentVariableIsSet(platform))
        return busAnswers;
    const bool hasX = !qEnvironmentVariableIsEmpty("DISPLAY");
    const bool hasWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!needsDisplay || (!hasX && !hasWayland))
        setOwnVariable(platform, "offscreen");
    else if (!hasWayland)
        // The display may be named and yet not be there: Qt would end the program.
        setOwnVariable(platform, "xcb;offscreen");
    return busAnswers;
}

bool hasDisplay()
{
    return QGuiApplication::platformName() != u"offscreen"_s;
}

} // namespace zepa
