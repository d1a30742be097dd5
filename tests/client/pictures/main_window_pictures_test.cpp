// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"
#include "client/posting/announce.h"
#include "client/ui/main/main_window.h"
#include "client/ui/main/simulated_event.h"
#include "pictures.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace {

using namespace zepa;

void post(Client& client, const char16_t* type, const ZepaBuddy& contact)
{
    const QList<SimulatedEvent>& events = simulatedEvents();
    const auto event = std::find_if(events.cbegin(), events.cend(), [type](const SimulatedEvent& candidate) {
        return QStringView(candidate.type) == QStringView(type);
    });
    ASSERT_NE(event, events.cend());
    announce(client, postingOf(*event, contact, {}));
}

TEST(MainWindowPictures, ShowContactsAndTheJournal)
{
    const ZepaBuddy ann(QStringLiteral("Ann"), QStringLiteral("Ann"), ZepaBuddy::Contact);
    const ZepaBuddy stranger(QStringLiteral("lottery@example.net"), QStringLiteral("lottery@example.net"),
                             ZepaBuddy::NotOnContactList);
    const QTemporaryDir folder;
    std::optional<Client> client;
    takePictures(QStringLiteral("main-window"), [&] {
        // A client that remembers nothing: each picture begins with the same journal.
        client.reset();
        client.emplace(folder.path());
        auto window = std::make_unique<MainWindow>(*client);
        post(*client, u"buddy_connected", ann);
        post(*client, u"email_notify", ann);
        post(*client, u"alert_received_notify", stranger);
        post(*client, u"message_received", ann);
        post(*client, u"message_received", ann);
        return window;
    });
}

TEST(MainWindowPictures, ShowWhatTheUserShouldKnow)
{
    const QTemporaryDir folder;
    Client client(folder.path());
    takePictures(QStringLiteral("main-window-notice"), [&client] {
        auto window = std::make_unique<MainWindow>(client);
        window->tell(QStringLiteral("The rules of \"Message received\" were broken, probably by a crash. They were put "
                                    "back from the copy of the last good ones."));
        return window;
    });
}

} // namespace
