// SPDX-License-Identifier: Apache-2.0
#include "client/chats/show_in_chat.h"

#include "client/chats/chat_window.h"
#include "core/type_ids.h"
#include "host/chat_manager.h"
#include "kit/journal/posting.h"

namespace zepa {

void showInChat(const Posting& posting)
{
    if (!posting.buddy)
        return;
    auto* window = dynamic_cast<ChatWindow*>(ZepaChatManager::getInstance()->getChatWindow(*posting.buddy));
    if (!window)
        return;
    if (posting.type.startsWith(ZepaTypeId::messageReceived))
        window->receiveMessage(posting.text);
    else if (posting.type == ZepaTypeId::messageSent)
        window->showSentMessage(posting.text);
    else if (const auto presence = presenceAfter(posting.type))
        window->setPresence(*presence);
}

} // namespace zepa
