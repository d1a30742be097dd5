// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"
#include "host/tray_icon.h"

#include <utility>

ZepaTrayIcon* ZepaNotificationModule::getTrayIcon() const
{
    return trayIcon;
}

ZepaTrayIcon* ZepaNotificationModule::getTrayIcon(const QString& name)
{
    return trayIcons.value(name);
}

ZepaTrayIcon* ZepaNotificationModule::setTrayIcon(const QString& name, const QIcon& icon)
{
    if (ZepaTrayIcon* known = trayIcons.value(name)) {
        // Only the picture: an icon that the client hid stays hidden.
        known->setIcon(icon);
        return known;
    }
    auto* made = new ZepaTrayIcon(nullptr);
    trayIcons.insert(name, made);
    made->setIcon(icon);
    made->setVisible(true);
    return made;
}

QList<ZepaTrayIcon*> ZepaNotificationModule::getTrayIcons()
{
    return trayIcons.values();
}

QString ZepaNotificationModule::getTrayIconId(ZepaTrayIcon* icon)
{
    return trayIcons.key(icon);
}

ZepaTrayIcon* ZepaNotificationModule::removeTrayIcon(const QString& name)
{
    if (name.isEmpty()) {
        // Although an empty name is an ordinary key elsewhere, here it means all of them.
        qDeleteAll(std::exchange(trayIcons, {}));
        return nullptr;
    }
    return trayIcons.take(name);
}
