// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"

#include "client/chats/chat_attention.h"
#include "core/method_ids.h"
#include "kit/settings_page/sound_check.h"
#include "kit/sound/sound_decoder.h"

namespace zepa {

Client::Client(const QString& settingsFolder, Start when)
    : m_settings(settingsFolder)
    , m_notifications({.methods = m_extraMethods.all(),
                       .wrapMethods = [this](ZepaNotificationModule& module) { m_recorded.wrapIn(module); }})
{
    // The method itself has no arguments to give to the platform.
    m_recorded.prepare(ZepaMethodId::taskbar, nameChatForAttention);
    setSoundProbe([](const QString& path) { return audio::decodeSound(path).clip != nullptr; });
    if (when == Start::Now)
        start();
}

} // namespace zepa
