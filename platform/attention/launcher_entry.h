// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusMessage>
#include <QString>

namespace attention {

/// The launcher's address of an application: "application://NAME.desktop". NAME is the desktop file's name, with or
/// without its ending, or else the application's name in lower case.
QString launcherAddress(const QString& desktopFileName, const QString& applicationName);

/// The signal that docks listen to.
QDBusMessage launcherUpdate(const QString& address, bool urgent);

/// Sends updates over the session bus in the order given. Returns at once: connecting and sending happen in a worker,
/// because the first use of a bus waits until the bus answers. Without a bus the update is lost.
void sendToLauncher(const QDBusMessage& update);

} // namespace attention
