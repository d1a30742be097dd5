// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/chat_manager.h"
#include "kit/kit_export.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

namespace zepa {

class ChatWindow;

/// The client's chat windows, at most one a buddy, by the buddy's identifier. What ZepaChatManager::getInstance()
/// gives. A window that is closed is forgotten at once; all are closed when the application object goes.
class ZEPA_KIT_EXPORT ChatManager final : public QObject, public ZepaChatManager
{
    Q_OBJECT

public:
    static ChatManager& instance();

    /// Shows the buddy's window and brings it to the front; makes it when it is not open. It stays the manager's:
    /// keep no pointer to it beyond the next return to the event loop. Needs a QApplication.
    ChatWindow* open(const ZepaBuddy& buddy);
    ZepaChatWindow* getChatWindow(const ZepaBuddy& buddy) override;
    /// Closes every window at once. Not to be called from a window's own signal.
    void closeAll();

Q_SIGNALS:
    /// The user sent `text` to the buddy from a chat window, which already shows it.
    void messageEntered(const ZepaBuddy& buddy, const QString& text);

private:
    ChatManager() = default;
    void forget(const QString& id);

    QHash<QString, ChatWindow*> m_windows;
    /// Closed by the user and waiting for the event loop to delete them.
    QList<QPointer<ChatWindow>> m_closed;
};

} // namespace zepa
