// SPDX-License-Identifier: Apache-2.0
#include "client/posting/show_in_chat.h"

#include "client/posting/posting.h"
#include "client/ui/chat_window.h"
#include "host/chat_manager.h"

namespace zepa {

void showInChat(const Posting& posting)
{
    if (!posting.buddy)
        return;
    auto* window = dynamic_cast<ChatWindow*>(ZepaChatManager::getInstance()->getChatWindow(*posting.buddy));
    if (!window)
        return;
    if (posting.type.startsWith(QStringLiteral("message_received")))
        window->receiveMessage(posting.text);
    else if (posting.type == QStringLiteral("message_sent"))
        window->showSentMessage(posting.text);
    else if (posting.type == QStringLiteral("buddy_connected"))
        window->setPresence(Presence::Available);
    else if (posting.type == QStringLiteral("buddy_went_away"))
        window->setPresence(Presence::Away);
    else if (posting.type == QStringLiteral("buddy_went_offline"))
        window->setPresence(Presence::Unavailable);
}

} // namespace zepa
