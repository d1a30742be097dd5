// SPDX-License-Identifier: Apache-2.0
#include "client/cli/chats.h"

#include "client/chats/chat_manager.h"
#include "client/chats/show_in_chat.h"
#include "client/cli/poster.h"

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
    zepa::showInChat(postingOf(event, Answers::AsTheEventSays));
}

} // namespace zepa::cli
