// SPDX-License-Identifier: Apache-2.0
#include "bus_daemon.h"
#include "connection_fixture.h"
#include "fake_bus.h"
#include "scripted_bus.h"

#include <zepa_platform/session_bus.h>

#include <QDir>
#include <QFile>

#include <chrono>
#include <memory>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class OpeningTest : public ConnectionTest
{
protected:
    void needDaemon(const QByteArray& listen = {})
    {
        if (!daemon.start(listen))
            GTEST_SKIP() << "no bus is installed";
    }

    BusDaemon daemon;
};

} // namespace

TEST_F(OpeningTest, IsKnownToHaveFailedWhereNobodyListensAndIsSaidLater)
{
    connection.open();
    EXPECT_EQ(connection.state(), State::Closed);
    EXPECT_EQ(closedCount, 0) << "told from inside open()";
    EXPECT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_TRUE(connection.newCall("a.b", "/", "a.b", "C").isNull());
}

TEST_F(OpeningTest, FindsABusThatComesThreeSecondsLate)
{
    connection.open();
    QTimer late;
    late.setSingleShot(true);
    late.start(3000);
    ASSERT_TRUE(runUntil([&] { return !late.isActive(); }));
    const ScriptedBus bus(socketPath());
    EXPECT_TRUE(runUntil([&] { return openedCount == 1; }));
    EXPECT_EQ(connection.uniqueName(), ":1.7");
    EXPECT_EQ(closedCount, 1) << "attempts that follow are no news";
}

TEST_F(OpeningTest, PassesOverASilentBusAndAnEmptyAddress)
{
    const FakeBus silent(socketPath("silent"));
    const ScriptedBus bus(socketPath());
    setAddress("unix:path=/nonexistent;unix:path=" + socketPath("silent") + ";unix:path=" + socketPath());
    EXPECT_TRUE(opens());
    EXPECT_EQ(silent.connectionCount(), 1);
    EXPECT_EQ(closedCount, 0);
}

TEST_F(OpeningTest, GivesUpABusThatKeepsSilentAndTriesItAgain)
{
    const FakeBus silent(socketPath());
    connection.open();
    EXPECT_EQ(connection.state(), State::Opening);
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_EQ(connection.state(), State::Closed);
    EXPECT_TRUE(runUntil([&] { return silent.connectionCount() == 2; }));
    EXPECT_EQ(silent.openCount(), 1) << "the first was not hung up";
}

TEST_F(OpeningTest, IsNotGivenUpBecauseTheProgramWasBusy)
{
    needDaemon();
    if (IsSkipped())
        return;
    setAddress(daemon.address());
    connection.open();
    std::this_thread::sleep_for(std::chrono::milliseconds(Connection::openingLimit + 300));
    ASSERT_TRUE(runUntil([&] { return openedCount + closedCount > 0; }));
    EXPECT_EQ(openedCount, 1);
    EXPECT_EQ(closedCount, 0);

    // Neither is a call whose reply waits in the socket.
    QString answer;
    connection.call(connection.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"), &connection,
                    [&](const Message& reply) { answer = reply.isError() ? QString(reply.errorName()) : u"in time"_s; },
                    {.limit = 50});
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    ASSERT_TRUE(runUntil([&] { return !answer.isEmpty(); }));
    EXPECT_EQ(answer, u"in time"_s);
}

TEST_F(OpeningTest, PassesOverABusWhoseQueueIsFull)
{
    FakeBus full(socketPath("full"));
    full.stopAccepting();
    std::vector<std::unique_ptr<Visitor>> visitors;
    do
        visitors.push_back(std::make_unique<Visitor>(socketPath("full")));
    while (visitors.back()->isIn() && visitors.size() < 100);
    ASSERT_FALSE(visitors.back()->isIn());
    const ScriptedBus bus(socketPath());
    setAddress("unix:path=" + socketPath("full"));
    connection.open();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    setAddress("unix:path=" + socketPath("full") + ";unix:path=" + socketPath());
    EXPECT_TRUE(runUntil([&] { return openedCount == 1; }));
}

TEST_F(OpeningTest, TriesABusAgainThatHangsUp)
{
    const FakeBus bus(socketPath(), FakeBus::Manner::HangsUp);
    connection.open();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_TRUE(runUntil([&] { return bus.connectionCount() == 2; }));
}

TEST_F(OpeningTest, TriesABusAgainThatHangsUpInTheMiddleOfTheHandshake)
{
    // Not a word that a bus says.
    const FakeBus bus(socketPath(), FakeBus::Manner::Answers, {"REJECTED\r\n"});
    connection.open();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_TRUE(runUntil([&] { return bus.connectionCount() == 2; }));
}

TEST_F(OpeningTest, TriesABusAgainThatRefusesTheIntroduction)
{
    ScriptedBus bus(socketPath());
    bus.answer("Hello", ScriptedBus::refuse);
    connection.open();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_EQ(openedCount, 0);
    bus.answer("Hello", [](sd_bus_message* call) { ScriptedBus::replyFrom("org.freedesktop.DBus", call, ":1.9"); });
    EXPECT_TRUE(runUntil([&] { return openedCount == 1; }));
    EXPECT_EQ(connection.uniqueName(), ":1.9");
}

TEST_F(OpeningTest, GivesUpABusThatDoesNotAnswerTheIntroduction)
{
    ScriptedBus bus(socketPath());
    bus.answer("Hello", [](sd_bus_message*) {});
    connection.open();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_EQ(openedCount, 0);
}

TEST_F(OpeningTest, FollowsABusToItsNextProcessWhereTheAddressHasAGuid)
{
    needDaemon();
    if (IsSkipped())
        return;
    ASSERT_TRUE(daemon.printedAddress().contains("guid="));
    setAddress(daemon.printedAddress());
    ASSERT_TRUE(opens());
    daemon.kill();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    ASSERT_TRUE(daemon.start());
    EXPECT_FALSE(qgetenv("DBUS_SESSION_BUS_ADDRESS") == daemon.printedAddress()) << "the guid is another one";
    EXPECT_TRUE(runUntil([&] { return openedCount == 2; }));
}

TEST_F(OpeningTest, WorksAndIsFoundToWorkBefore)
{
    needDaemon();
    if (IsSkipped())
        return;
    setAddress(daemon.address());
    EXPECT_TRUE(zepaSessionBusAnswers(60000));
    ASSERT_TRUE(opens());
    EXPECT_TRUE(roundTrip(connection));
}

TEST_F(OpeningTest, WorksOverTcp)
{
    needDaemon("tcp:host=127.0.0.1,port=0,family=ipv4");
    if (IsSkipped())
        return;
    setAddress(daemon.printedAddress());
    ASSERT_TRUE(opens()) << daemon.printedAddress().constData();
    EXPECT_TRUE(roundTrip(connection));
}

TEST_F(OpeningTest, WorksOverAProgram)
{
    needDaemon();
    if (IsSkipped())
        return;
    setAddress("unixexec:path=/usr/bin/python3,argv1=-B,argv2=" BUS_BRIDGE ",argv3=" + daemon.socketPath());
    ASSERT_TRUE(opens());
    EXPECT_TRUE(roundTrip(connection));
    daemon.kill();
    EXPECT_TRUE(runUntil([&] { return closedCount == 1; }));
}

TEST_F(OpeningTest, WorksInARunTimeFolderWithAnyName)
{
    needDaemon();
    if (IsSkipped())
        return;
    ASSERT_TRUE(QDir().mkpath(m_folder.filePath(u"~a b"_s)));
    ASSERT_TRUE(QFile::link(QString::fromLocal8Bit(daemon.socketPath()), m_folder.filePath(u"~a b/bus"_s)));
    qputenv("XDG_RUNTIME_DIR", m_folder.filePath(u"~a b"_s).toLocal8Bit());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_TRUE(opens());
}

TEST_F(OpeningTest, IsTheSameForTheWholeProcess)
{
    Connection* shared = Connection::shared();
    ASSERT_NE(shared, nullptr);
    EXPECT_EQ(Connection::shared(), shared);
}
