// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"
#include "client/window/main_window.h"
#include "client/window/notice_bar.h"
#include "client/window/simulated_event.h"
#include "kit/journal/announce.h"
#include "pictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

void post(Client& client, const char16_t* type, const ZepaBuddy& contact)
{
    const QList<SimulatedEvent>& events = simulatedEvents();
    const auto event = std::find_if(events.cbegin(), events.cend(), [type](const SimulatedEvent& candidate) {
        return QStringView(type) == candidate.type;
    });
    ASSERT_NE(event, events.cend());
    announce(client.recorder(), postingOf(*event, contact, {}));
}

TEST(MainWindowPictures, ShowContactsAndTheJournal)
{
    const ZepaBuddy ann(u"Ann"_s, u"Ann"_s, ZepaBuddy::Contact);
    const ZepaBuddy stranger(u"lottery@example.net"_s, u"lottery@example.net"_s, ZepaBuddy::NotOnContactList);
    const QTemporaryDir folder;
    std::optional<Client> client;
    takePictures(u"main-window"_s, [&] {
        // A client that remembers nothing: each picture begins with the same journal.
        client.reset();
        client.emplace(folder.path());
        auto window = std::make_unique<MainWindow>(*client);
        window->resize(1000, 640);
        post(*client, u"buddy_connected", ann);
        post(*client, u"email_notify", ann);
        post(*client, u"alert_received_notify", stranger);
        post(*client, u"message_received", ann);
        post(*client, u"message_received", ann);
        return window;
    });
}

void write(const QString& path, const QByteArray& content)
{
    ASSERT_TRUE(QFileInfo(path).dir().mkpath(u"."_s));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// The notice in the window, after the client started.
QString noticeIn(const MainWindow& window)
{
    const auto* notice = window.findChild<NoticeBar*>();
    return notice && notice->isVisible() ? notice->accessibleName() : QString();
}

TEST(MainWindowPictures, ShowThatRulesWereMended)
{
    const QTemporaryDir folder;
    write(folder.filePath(u"rules-backup/copies/message_received"_s), "<rules/>");
    write(folder.filePath(u"notifications/message_received"_s), "<rules><zepa_hi");
    Client client(folder.path());
    takePictures(u"main-window-notice"_s, [&client] {
        auto window = std::make_unique<MainWindow>(client);
        window->resize(1000, 640);
        return window;
    });
}

TEST(MainWindow, TellsOfMendedRulesByTheNameOfTheirEvent)
{
    const QTemporaryDir folder;
    write(folder.filePath(u"rules-backup/copies/message_received"_s), "<rules/>");
    write(folder.filePath(u"notifications/message_received"_s), {});
    Client client(folder.path());
    MainWindow window(client);
    EXPECT_EQ(noticeIn(window), QString());
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !noticeIn(window).isEmpty(); }));
    EXPECT_TRUE(noticeIn(window).endsWith(u": Message received"_s)) << noticeIn(window).toStdString();
}

TEST(MainWindow, AnswersForThePostingThatCameBeforeIt)
{
    const QTemporaryDir folder;
    Client client(folder.path());
    post(client, u"typing_started_notify", {});
    MainWindow window(client);
    window.show();
    const auto* answer = QTest::qWaitFor([&window] { return window.findChild<QPlainTextEdit*>(); })
                             ? window.findChild<QPlainTextEdit*>()
                             : nullptr;
    ASSERT_NE(answer, nullptr);
    EXPECT_TRUE(answer->toPlainText().contains(u"has no rule"_s)) << answer->toPlainText().toStdString();
}

TEST(MainWindow, TellsThatNothingIsKeptWhereTheFolderCannotBeWritten)
{
    const QTemporaryDir folder;
    write(folder.filePath(u"file"_s), {});
    Client client(folder.filePath(u"file/settings"_s));
    MainWindow window(client);
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&window] { return noticeIn(window).contains(u"cannot write to"); }));
}

} // namespace
