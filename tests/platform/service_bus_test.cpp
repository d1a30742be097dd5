// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <QFile>
#include <QJsonDocument>
#include <QTimer>
#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

class BusTest : public ServiceTest
{
protected:
    /// What a service wrote that the bus started.
    static QList<QJsonObject> logged(const QString& file, const QString& key)
    {
        QFile log(file);
        QList<QJsonObject> result;
        if (!log.open(QIODevice::ReadOnly))
            return result;
        for (const QByteArray& line : log.readAll().split('\n')) {
            const QJsonObject object = QJsonDocument::fromJson(line).object();
            if (object.contains(key) || object[u"call"_s] == key)
                result.append(object);
        }
        return result;
    }
};

/// Runs after the application object is gone, as destructors of a client's statics do.
struct LastCaller
{
    ~LastCaller()
    {
        const Growl_Notification notification{};
        Growl_Delegate delegate{};
        Growl_PostNotification(&notification);
        Growl_SetDelegate(&delegate);
        const bool running = Growl_IsRunning();
        Growl_SetDelegate(nullptr);
        if (running)
            std::_Exit(1);
    }
};

} // namespace

TEST_F(BusTest, IsNotRunningWithoutABusAndReportsPopupsAsTimedOut)
{
    killBus();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    postClickable("a");
    EXPECT_TRUE(answers().empty());
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(BusTest, IsNotRunningWithoutAServiceAndReportsPopupsAsTimedOut)
{
    EXPECT_TRUE(Growl_IsRunning()) << "the bus has not said yet";
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(BusTest, IsRunningAsSoonAsAServiceStartsLate)
{
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    const auto service = startService({u"markup"_s});
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    TestPosting posting;
    posting.text = u"&"_s;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls().first()[u"body"_s], u"&amp;"_s);
    service->kill();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
}

TEST_F(BusTest, LetsTheBusStartTheService)
{
    killBus();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    const QString log = makeActivatable({u"markup"_s, u"click-last"_s});
    startBus();
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    EXPECT_TRUE(logged(log, u"ready"_s).isEmpty()) << "asking starts no service";
    TestPosting posting;
    posting.text = u"&"_s;
    posting.context = "a";
    post(posting);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(logged(log, u"Notify"_s).first()[u"body"_s], u"&amp;"_s);
    EXPECT_TRUE(Growl_IsRunning());
}

TEST_F(BusTest, LearnsThatTheBusCanStartAServiceThatWasInstalledLater)
{
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    makeActivatable({});
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; })) << "the bus watches its folders";
}

TEST_F(BusTest, HoldsPopupsForAServiceThatTheBusStartsSlowly)
{
    killBus();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    const QString log = makeActivatable({u"late-start"_s, u"late-capabilities"_s, u"click-last"_s});
    startBus();
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    postClickable("a");
    postClickable("b");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("clicked a", "clicked b"));
}

TEST_F(BusTest, ReportsWaitingPopupsAsTimedOutWhenTheBusGoesAway)
{
    const auto service = startService();
    postClickable("shown");
    letEverythingArrive(*service);
    service->stop();
    postClickable("waits for its id");
    killBus();
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out shown", "timed out waits for its id"));
    // A proxy goes on listening, and only then finds that the bus has gone.
    EXPECT_TRUE(waitFor([] { return Growl_IsRunning() == 0; }));
}

TEST_F(BusTest, ReportsPopupsThatAreHeldAsTimedOutWhenTheBusGoesAway)
{
    const auto service = startService({u"mute"_s});
    postClickable("held");
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"GetCapabilities"_s).isEmpty(); }));
    killBus();
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out held"});
}

TEST_F(BusTest, ConnectsAgainWhenABusIsThereAgain)
{
    auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    killBus();
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    startBus();
    service = startService({u"click-last"_s});
    ASSERT_TRUE(waitFor([] { return Growl_IsRunning() != 0; }));
    postClickable("b");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"timed out a", "clicked b"}));
}

TEST_F(BusTest, MissesNoBeatWhileTheServiceSleepsTenSeconds)
{
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    constexpr auto beat = 50ms;
    // What this machine itself cannot keep up with is not ours: a thread that does nothing else counts as well.
    std::atomic<bool> over = false;
    std::atomic<int> possibleBeats = 0;
    service->tell(u"sleep 10000"_s);
    ASSERT_TRUE(waitFor([&] { return service->wrote(u"asleep"_s); }));
    std::thread metronome([&] {
        while (!over) {
            std::this_thread::sleep_for(beat);
            ++possibleBeats;
        }
    });
    int beats = 0;
    int posted = 0;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        ++beats;
        registerNames({u"Message"_s});
        EXPECT_TRUE(Growl_IsRunning());
        postClickable(std::to_string(posted++));
    });
    timer.start(beat);
    ASSERT_TRUE(waitFor([&] { return service->wrote(u"awake"_s); }));
    timer.stop();
    over = true;
    metronome.join();
    EXPECT_GT(possibleBeats, 100) << "this machine is too busy to tell";
    EXPECT_GE(beats, possibleBeats - 5);
    RecordProperty("beats", beats);
    // Those of the first half were given up after five seconds; all the others are shown now.
    EXPECT_GE(answers().size(), 60U);
    for (const std::string& answer : answers())
        EXPECT_EQ(answer.rfind("timed out", 0), 0U) << answer;
    service->kill();
    ASSERT_TRUE(waitFor([&] { return static_cast<int>(answers().size()) == posted; }));
    for (int number = 0; number < posted; ++number)
        EXPECT_EQ(std::count(answers().begin(), answers().end(), "timed out " + std::to_string(number)), 1);
}

TEST_F(BusTest, ShowsNewPopupsAfterAStuckServiceCameRound)
{
    const auto service = startService();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    service->tell(u"sleep 7000"_s);
    ASSERT_TRUE(waitFor([&] { return service->wrote(u"asleep"_s); }));
    postClickable("given up");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out given up"});
    ASSERT_TRUE(waitForPopups(*service, 2));
    postClickable("b");
    ASSERT_TRUE(waitForPopups(*service, 3));
    service->tell(u"click 2\nclick 3"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers().back(), "clicked b");
    // The one that was given up is closed when the service says at last which it is.
    const auto isClosed = [&] {
        for (const QJsonObject& call : service->calls(u"CloseNotification"_s)) {
            if (call[u"id"_s] == 2)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(waitFor(isClosed));
}

TEST_F(BusTest, DoesNothingAfterTheApplicationObjectIsGone)
{
    static const LastCaller lastCaller;
    const auto service = startService();
    postClickable("never answered");
    ASSERT_TRUE(waitForPopups(*service, 1));
}
