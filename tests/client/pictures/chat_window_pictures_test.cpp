// SPDX-License-Identifier: Apache-2.0
#include "client/services/settings.h"
#include "client/ui/chat_window.h"
#include "pictures.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace zepa;

TEST(ChatWindowPictures, ShowAConversation)
{
    const QTemporaryDir folder;
    const Settings settings(folder.path());
    takePictures(QStringLiteral("chat-window"), [] {
        auto window = std::make_unique<ChatWindow>(ZepaBuddy(QStringLiteral("Anna"), QStringLiteral("Anna"), 1));
        window->setPresence(Presence::Available);
        window->receiveMessage(QStringLiteral("Are you coming to the rehearsal tonight?"));
        window->showSentMessage(QStringLiteral("Yes! I only have to finish the minutes of this morning's meeting, "
                                               "and then I take the tram at ten past six."));
        window->receiveMessage(QStringLiteral("שלום from the rehearsal room: 3 chairs are missing"));
        window->notifyMessage(QStringLiteral("Anna changed the status: back in ten minutes"));
        window->receiveMessage(QStringLiteral("See you there"));
        return window;
    });
}

} // namespace
