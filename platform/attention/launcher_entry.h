// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/session_bus.h"

#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QString>

namespace attention {

/// The launcher's address of an application: "application://NAME.desktop". NAME is the desktop file's name, with or
/// without its ending, or else the application's name in lower case.
QString launcherAddress(const QString& desktopFileName, const QString& applicationName);

/// The signal that docks listen to.
QDBusMessage launcherUpdate(const QString& address, bool urgent);

/// Sends updates over the session bus, in the order given. Returns at once: what is said before the bus has answered
/// for the first time leaves with the event loop. Without a bus an update is lost.
class Launcher : public QObject
{
    Q_OBJECT

public:
    /// So many updates wait for the bus at most; beyond that the oldest is lost.
    static constexpr qsizetype waitingLimit = 100;

    Launcher();

    void send(const QDBusMessage& update);

private:
    void sendWaiting();

    zepa::bus::SessionBus m_bus;
    QList<QDBusMessage> m_waiting;
};

} // namespace attention
