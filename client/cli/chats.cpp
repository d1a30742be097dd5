// SPDX-License-Identifier: Apache-2.0
#include "client/cli/chats.h"

#include "client/services/chat_manager.h"
#include "client/ui/chat_window.h"

namespace zepa::cli {

void openChats(const QList<Event>& events)
{
    for (const Event& event : events) {
        if (!event.buddy.isNull())
            ChatManager::instance().open(event.person());
    }
}

void showInChat(const Event& event)
{
    if (event.buddy.isNull())
        return;
    // Not by opening it: that would bring it to the front at every message.
    auto* window = dynamic_cast<ChatWindow*>(ChatManager::instance().getChatWindow(event.person()));
    if (!window)
        return;
    if (event.type.startsWith(QStringLiteral("message_received")))
        window->receiveMessage(event.text);
    else if (event.type == QStringLiteral("message_sent"))
        window->showSentMessage(event.text);
    else if (event.type == QStringLiteral("buddy_connected"))
        window->setPresence(Presence::Available);
    else if (event.type == QStringLiteral("buddy_went_away"))
        window->setPresence(Presence::Away);
    else if (event.type == QStringLiteral("buddy_went_offline"))
        window->setPresence(Presence::Unavailable);
}

} // namespace zepa::cli
