// SPDX-License-Identifier: Apache-2.0
#include "fake_bus.h"
#include "service_fixture.h"

#include <zepa_platform/popups.h>
#include <zepa_platform/session_bus.h>

#include <QFile>
#include <QTimer>

#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* goOn = "DATA\r\n";
constexpr const char* welcome = "OK 0123456789abcdef0123456789abcdef\r\n";
constexpr const char* noFiles = "ERROR\r\n"; // no file descriptors are passed on

/// Nobody but the test speaks for the bus here, and only while the test runs its event loop: whoever waited for the
/// bus would wait for ever.
class SilentBusTest : public ServiceTest
{
protected:
    SilentBusTest()
    {
        killBus();
        EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::NoBus; }));
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + busPath());
    }

    QByteArray busPath() const { return m_other.filePath(u"bus"_s).toLocal8Bit(); }

    /// Runs the program that asks for everything; false when it is not over long before D-Bus libraries lose their
    /// patience, which is after 25 s.
    static bool ends(const QStringList& arguments)
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(QString::fromUtf8(SHORT_PROGRAM), arguments);
        QTimer limit;
        limit.setSingleShot(true);
        limit.start(15000);
        if (!waitFor([&] { return program.state() == QProcess::NotRunning || !limit.isActive(); }))
            return false;
        const bool ended = program.state() == QProcess::NotRunning;
        program.kill();
        program.waitForFinished();
        return ended && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    }

private:
    QTemporaryDir m_other;
};

} // namespace

TEST_F(SilentBusTest, HoldsUpNoPostingAndAnswersEachPopupOnce)
{
    const FakeBus bus(busPath());
    ASSERT_TRUE(bus.listens());
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; })) << "the bus has not said yet";
    for (int number = 0; number < 20; ++number) {
        registerNames({u"Message"_s});
        postClickable(std::to_string(number));
    }
    EXPECT_EQ(bus.connectionCount(), 0) << "the bus has not even accepted";
    EXPECT_EQ(zepaPopupsOnTheirWay(), 20);
    EXPECT_EQ(zepaPopupService(), ZepaPopupService::NotKnownYet);
    int beats = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, &beat, [&] { ++beats; });
    beat.start(50);
    ASSERT_TRUE(waitFor([] { return answers().size() == 20; }));
    EXPECT_GE(beats, 40) << "five seconds are a hundred";
    EXPECT_EQ(bus.connectionCount(), 1);
    EXPECT_EQ(zepaPopupsOnTheirWay(), 0);
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::NoBus; }));
    EXPECT_FALSE(Growl_IsRunning());
    for (int number = 0; number < 20; ++number)
        EXPECT_EQ(answers()[static_cast<std::size_t>(number)], "timed out " + std::to_string(number));
}

TEST_F(SilentBusTest, HoldsUpNobodyThatGreetsAndThenDoesNotAnswerTheIntroduction)
{
    const FakeBus bus(busPath(), FakeBus::Manner::Answers, {goOn, welcome, noFiles});
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    postClickable("a");
    ASSERT_TRUE(waitFor([&] { return bus.connectionCount() == 2; }));
    ASSERT_TRUE(waitFor([&] { return bus.heard().contains("BEGIN"); }));
    postClickable("b");
    int beats = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, &beat, [&] { ++beats; });
    beat.start(50);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_GE(beats, 40);
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
    ASSERT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::NoBus; }));
    EXPECT_TRUE(waitFor([&] { return bus.openCount() == 0; })) << "the connection was not given up";
}

TEST_F(SilentBusTest, DoesNotHoldUpTheEndOfAProgram)
{
    const FakeBus bus(busPath());
    EXPECT_TRUE(ends({}));
    EXPECT_GT(bus.connectionCount(), 0);
    EXPECT_TRUE(ends({u"at-once"_s}));
}

TEST_F(SilentBusTest, DoesNotHoldUpTheEndOfAProgramAfterItGreeted)
{
    const FakeBus bus(busPath(), FakeBus::Manner::Answers, {goOn, welcome, noFiles});
    EXPECT_TRUE(ends({}));
    EXPECT_TRUE(bus.heard().contains("BEGIN"));
}

TEST_F(SilentBusTest, IsPassedOverForABusThatAnswers)
{
    const FakeBus silent(busPath());
    startBus();
    qputenv("DBUS_SESSION_BUS_ADDRESS", startedBusAddress());
    const auto service = startService({u"click-last"_s});
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + busPath() + ";" + startedBusAddress());
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(silent.connectionCount(), 1);
}

TEST_F(SilentBusTest, IsNotNeededWhereTheRunTimeFolderHasOne)
{
    startBus();
    qputenv("DBUS_SESSION_BUS_ADDRESS", startedBusAddress());
    const auto service = startService({u"click-last"_s});
    QFile::link(QString::fromLocal8Bit(startedBusAddress().mid(10)), QString::fromLocal8Bit(busPath()));
    qputenv("XDG_RUNTIME_DIR", busPath().chopped(4));
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(SilentBusTest, IsToldFromOneThatAnswersAndFromNone)
{
    constexpr int limit = 300;
    EXPECT_FALSE(zepaSessionBusAnswers(limit)) << "nobody listens";
    {
        const FakeBus bus(busPath());
        EXPECT_FALSE(zepaSessionBusAnswers(limit));
    }
    {
        // Has a voice only in this thread, which is busy waiting for it.
        const FakeBus bus(busPath(), FakeBus::Manner::Answers, {goOn, welcome, noFiles});
        EXPECT_FALSE(zepaSessionBusAnswers(limit));
    }
    startBus();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent;" + startedBusAddress());
    EXPECT_TRUE(zepaSessionBusAnswers(60000));
}
