// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_manager.h"

#include "client/chats/chat_window.h"
#include "kit/widgets/bring_to_front.h"

#include <QApplication>

#include <utility>

namespace zepa {

namespace {

void closeAtEnd()
{
    ChatManager::instance().closeAll();
}

} // namespace

ChatManager& ChatManager::instance()
{
    static ChatManager manager;
    return manager;
}

ChatWindow* ChatManager::open(const ZepaBuddy& buddy)
{
    const QString id = buddy.getId();
    ChatWindow* window = m_windows.value(id);
    if (window) {
        window->setBuddy(buddy);
    } else {
        // This object outlives the application object, which the windows must not.
        qRemovePostRoutine(closeAtEnd);
        qAddPostRoutine(closeAtEnd);
        window = new ChatWindow(buddy);
        m_windows.insert(id, window);
        connect(window, &ChatWindow::closed, this, [this, id] { forget(id); });
        connect(window, &ChatWindow::messageEntered, this,
                [this, window](const QString& text) { Q_EMIT messageEntered(window->buddy(), text); });
    }
    bringToFront(*window);
    return window;
}

ZepaChatWindow* ChatManager::getChatWindow(const ZepaBuddy& buddy)
{
    return m_windows.value(buddy.getId());
}

void ChatManager::forget(const QString& id)
{
    ChatWindow* window = m_windows.take(id);
    if (!window)
        return;
    // It may be in the middle of a call of its own, and the event loop may not come back to delete it.
    window->deleteLater();
    m_closed.removeAll(nullptr);
    m_closed.append(window);
}

void ChatManager::closeAll()
{
    const QList<ChatWindow*> windows = m_windows.values();
    m_windows.clear();
    qDeleteAll(windows);
    for (const QPointer<ChatWindow>& window : std::exchange(m_closed, {}))
        delete window.data();
}

} // namespace zepa

ZepaChatManager* ZepaChatManager::getInstance()
{
    return &zepa::ChatManager::instance();
}
