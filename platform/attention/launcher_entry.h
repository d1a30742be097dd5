// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QObject>
#include <QPointer>
#include <QString>

namespace attention {

/// The launcher's address of an application: "application://NAME.desktop". NAME is the desktop file's name, with or
/// without its ending, or else the application's name in lower case.
QString launcherAddress(const QString& desktopFileName, const QString& applicationName);

/// Tells docks over the session bus whether the application is urgent. Returns at once: while the bus has not answered,
/// or there is none, the last state waits for it.
class Launcher : public QObject
{
    Q_OBJECT

public:
    void tell(const QString& address, bool isUrgent);

private:
    void send();

    QPointer<zepa::bus::Connection> m_connection; ///< null until something was to be told
    QString m_address;
    bool m_isUrgent = false;
    bool m_isWaiting = false;
};

} // namespace attention
