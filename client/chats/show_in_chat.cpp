// SPDX-License-Identifier: Apache-2.0
#include "client/chats/show_in_chat.h"

#include "client/chats/chat_window.h"
#include "host/chat_manager.h"
#include "kit/journal/posting.h"

using namespace Qt::StringLiterals;

namespace zepa {

void showInChat(const Posting& posting)
{
    if (!posting.buddy)
        return;
    auto* window = dynamic_cast<ChatWindow*>(ZepaChatManager::getInstance()->getChatWindow(*posting.buddy));
    if (!window)
        return;
    if (posting.type.startsWith(u"message_received"_s))
        window->receiveMessage(posting.text);
    else if (posting.type == u"message_sent"_s)
        window->showSentMessage(posting.text);
    else if (posting.type == u"buddy_connected"_s)
        window->setPresence(Presence::Available);
    else if (posting.type == u"buddy_went_away"_s)
        window->setPresence(Presence::Away);
    else if (posting.type == u"buddy_went_offline"_s)
        window->setPresence(Presence::Unavailable);
}

} // namespace zepa
