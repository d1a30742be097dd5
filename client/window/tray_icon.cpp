// SPDX-License-Identifier: Apache-2.0
#include "host/tray_icon.h"

#include "client/window/client_requests.h"

#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

/// What stands in the status area. The base keeps the picture and the state, so that they can be read without one.
class ZepaTrayIconPrivate
{
public:
    QIcon icon;
    bool visible = false;
    /// The menu belongs to the icon and goes after it. Both are null where there is nothing to show them
    /// on: a program without widgets, a platform without a display.
    std::unique_ptr<QMenu> menu;
    std::unique_ptr<QSystemTrayIcon> shown;
};

namespace {

/// Qt's tray icon complains on platforms that draw nothing.
bool canShowIcons()
{
    static const QStringList blind{u"offscreen"_s, u"minimal"_s};
    return qobject_cast<QApplication*>(QCoreApplication::instance()) &&
           !blind.contains(QGuiApplication::platformName());
}

} // namespace

ZepaTrayIcon::ZepaTrayIcon(QObject* parent) : QObject(parent), d(std::make_unique<ZepaTrayIconPrivate>())
{
    if (!canShowIcons())
        return;
    d->menu = std::make_unique<QMenu>();
    d->menu->addAction(QCoreApplication::translate("tray icon", "Show"), &zepa::ClientRequests::instance(),
                       &zepa::ClientRequests::show);
    d->menu->addAction(QCoreApplication::translate("tray icon", "Quit"), &zepa::ClientRequests::instance(),
                       &zepa::ClientRequests::quit);
    d->shown = std::make_unique<QSystemTrayIcon>();
    d->shown->setContextMenu(d->menu.get());
    QObject::connect(d->shown.get(), &QSystemTrayIcon::activated, this, [](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            Q_EMIT zepa::ClientRequests::instance().show();
    });
}

ZepaTrayIcon::~ZepaTrayIcon() = default;

void ZepaTrayIcon::setIcon(const QIcon& icon)
{
    d->icon = icon;
    if (d->shown)
        d->shown->setIcon(icon);
}

QIcon ZepaTrayIcon::icon() const
{
    return d->icon;
}

void ZepaTrayIcon::setVisible(bool visible)
{
    d->visible = visible;
    if (d->shown)
        d->shown->setVisible(visible);
}

bool ZepaTrayIcon::isVisible() const
{
    return d->visible;
}
