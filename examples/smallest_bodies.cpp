// SPDX-License-Identifier: Apache-2.0
// The two services of host/ that no library brings, in their smallest form: no chat windows, and a plain status icon.
#include "host/chat_manager.h"
#include "host/tray_icon.h"

#include <QSystemTrayIcon>

namespace {

class NoChats final : public ZepaChatManager
{
public:
    ZepaChatWindow* getChatWindow(const ZepaBuddy& /*buddy*/) override { return nullptr; }
};

} // namespace

ZepaChatManager* ZepaChatManager::getInstance()
{
    static NoChats chats;
    return &chats;
}

class ZepaTrayIconPrivate
{
public:
    QSystemTrayIcon icon;
};

ZepaTrayIcon::ZepaTrayIcon(QObject* parent) : QObject(parent), d(std::make_unique<ZepaTrayIconPrivate>())
{}

ZepaTrayIcon::~ZepaTrayIcon() = default;

void ZepaTrayIcon::setIcon(const QIcon& icon)
{
    d->icon.setIcon(icon);
}

QIcon ZepaTrayIcon::icon() const
{
    return d->icon.icon();
}

void ZepaTrayIcon::setVisible(bool visible)
{
    d->icon.setVisible(visible);
}

bool ZepaTrayIcon::isVisible() const
{
    return d->icon.isVisible();
}
