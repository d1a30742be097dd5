// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_attention.h"

#include "client/chats/chat_window.h"
#include "host/chat_manager.h"

#include <zepa_platform/attention.h>

#include <algorithm>

namespace zepa {

void nameChatForAttention(const QList<ZepaArg>& args)
{
    const auto buddy =
        std::find_if(args.cbegin(), args.cend(), [](const ZepaArg& arg) { return arg.getType() == ZepaArg::Buddy; });
    const ChatWindow* chat = nullptr;
    if (buddy != args.cend())
        chat = dynamic_cast<ChatWindow*>(ZepaChatManager::getInstance()->getChatWindow(buddy->toBuddy()));
    zepaSetAttentionWindow(chat == nullptr ? nullptr : chat->windowHandle());
}

} // namespace zepa
