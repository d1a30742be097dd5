// SPDX-License-Identifier: Apache-2.0
#include "client/environment.h"

#include <QGuiApplication>

namespace zepa {

void prepareEnvironment(bool needsDisplay)
{
    // With TZ unset the C library looks at /etc/localtime whenever somebody asks for the time of day, which the
    // library does for every remembered posting: twenty times as slow.
    if (!qEnvironmentVariableIsSet("TZ"))
        qputenv("TZ", ":/etc/localtime");

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
