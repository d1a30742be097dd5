// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_window.h"
#include "kit/settings/settings.h"
#include "pictures.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

TEST(ChatWindowPictures, ShowAConversation)
{
    const QTemporaryDir folder;
    const Settings settings(folder.path());
    takePictures(u"chat-window"_s, [] {
        auto window = std::make_unique<ChatWindow>(ZepaBuddy(u"Anna"_s, u"Anna"_s, 1));
        window->setPresence(Presence::Available);
        window->receiveMessage(u"Are you coming to the rehearsal tonight?"_s);
        window->showSentMessage(u"Yes! I only have to finish the minutes of this morning's meeting, "
                                u"and then I take the tram at ten past six."_s);
        window->receiveMessage(u"שלום from the rehearsal room: 3 chairs are missing"_s);
        window->notifyMessage(u"Anna changed the status: back in ten minutes"_s);
        window->receiveMessage(u"See you there"_s);
        return window;
    });
}

} // namespace
