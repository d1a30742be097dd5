// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/popups.h>

#include <QJsonArray>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using AnswersTest = ServiceTest;

bool otherIsToldMeanwhile = false;

/// Opens the fixture's waiting to a call-back.
class Waiting : public ServiceTest
{
public:
    static bool untilAnswered()
    {
        return waitFor([] { return !answers().empty(); });
    }
};

/// Runs an event loop of its own, as a dialog does, until the other pop-up is answered.
void waitForTheOther(CFPropertyListRef /*context*/)
{
    otherIsToldMeanwhile = Waiting::untilAnswered();
}

} // namespace

TEST_F(AnswersTest, ReportsAClickOnceAndClosesThePopup)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"CloseNotification"_s).isEmpty(); }));
    service->tell(u"click 1"_s);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(service->calls(u"CloseNotification"_s).first()[u"id"_s], 1);
}

TEST_F(AnswersTest, CallsThePopupsOwnCallBackInsteadOfTheDelegates)
{
    const auto service = startService();
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = onOwnClick;
    post(posting);
    posting.context = "b";
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    service->tell(u"click 1"_s);
    service->tell(u"close 2"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"own a", "timed out b"}));
}

TEST_F(AnswersTest, ReportsAClosedPopupAsTimedOut)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"close 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, TakesNoClickThatComesAfterTheClosing)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"close 1\nclick 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, TakesAClickThatComesBeforeTheReply)
{
    const auto service = startService({u"click-first"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(AnswersTest, TakesAClosingThatComesBeforeTheReply)
{
    const auto service = startService({u"close-first"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, TakesNoClickThatComesBehindTheClosingBeforeTheReply)
{
    const auto service = startService({u"close-click-first"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, AnswersEachOfTheIdenticalPopupsThatAServiceMerges)
{
    const auto service = startService({u"same-id"_s});
    postClickable("a");
    postClickable("b");
    postClickable("c");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b"));
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 3; }));
    EXPECT_EQ(answers().back(), "clicked c");
}

TEST_F(AnswersTest, AnswersEachOfThePopupsThatAServiceMergesUnderIdsOfTheirOwn)
{
    const auto service = startService({u"merge"_s});
    postClickable("a");
    postClickable("b");
    postClickable("c");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b"));
    service->tell(u"click 3\nclose 3"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 3; }));
    EXPECT_EQ(answers().back(), "clicked c");
    letEverythingArrive(*service);
    EXPECT_EQ(answers().size(), 3U);
}

TEST_F(AnswersTest, AnswersOnceEachOfThePopupsThatAServiceNeverReports)
{
    const auto service = startService();
    for (const char* context : {"a", "b", "c"})
        postClickable(context);
    ASSERT_TRUE(waitForPopups(*service, 3));
    // Of three that look the same, only the first is ever said to be closed.
    service->tell(u"close 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
    service->kill();
    ASSERT_TRUE(waitFor([] { return answers().size() == 3; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b", "timed out c"));
}

TEST_F(AnswersTest, IgnoresActionsThatWereNotOffered)
{
    const auto service = startService();
    post({});
    postClickable("b");
    ASSERT_TRUE(waitForPopups(*service, 2));
    service->tell(u"click 1\ninvoke 2 other\ninvoke 2 "_s);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    for (const QJsonObject& call : service->calls(u"CloseNotification"_s))
        EXPECT_EQ(call[u"id"_s], 3) << "only the last was clicked";
}

TEST_F(AnswersTest, HandsTheActivationTokenOnBeforeTheCallBack)
{
    const auto service = startService();
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = noteToken;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"token 1 first\ntoken 1 token-of-a\nclick 1"_s);
    ASSERT_TRUE(waitFor([] { return !notedToken().isEmpty(); }));
    EXPECT_EQ(notedToken(), "token-of-a");
}

TEST_F(AnswersTest, DoesNotHandOnTheTokenOfAnotherPopup)
{
    qunsetenv("XDG_ACTIVATION_TOKEN");
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"token 2 token-of-b\nclick 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(AnswersTest, DoesNotHandOnAnEarlierClicksTokenAndKeepsEachUntilItsOwnClick)
{
    const auto service = startService();
    TestPosting posting;
    posting.clickCallBack = noteToken;
    for (const char* context : {"a", "b", "c"}) {
        posting.context = context;
        post(posting);
    }
    ASSERT_TRUE(waitForPopups(*service, 3));
    service->tell(u"token 1 token-of-a\ntoken 2 token-of-b\nclick 1"_s);
    ASSERT_TRUE(waitFor([] { return notedToken() == "token-of-a"; }));
    service->tell(u"click 2"_s);
    ASSERT_TRUE(waitFor([] { return notedToken() == "token-of-b"; }));
    service->tell(u"click 3"_s);
    ASSERT_TRUE(waitFor([] { return notedToken().isEmpty(); }));
}

TEST_F(AnswersTest, DoNotWaitForACallBackThatRunsAnEventLoopOfItsOwn)
{
    const auto service = startService();
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = waitForTheOther;
    post(posting);
    postClickable("b");
    ASSERT_TRUE(waitForPopups(*service, 2));
    service->tell(u"click 1\nclick 2"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"clicked b"});
    EXPECT_TRUE(otherIsToldMeanwhile);
}

TEST_F(AnswersTest, IgnoresWhatOthersSendInTheNameOfTheService)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    forge(u"ActionInvoked"_s, {1U, u"default"_s});
    forge(u"NotificationClosed"_s, {1U, 2U});
    forge(u"ActivationToken"_s, {1U, u"forged"_s});
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_NE(qgetenv("XDG_ACTIVATION_TOKEN"), "forged");
}

TEST_F(AnswersTest, IgnoreWhatOthersSendToUsAloneInTheNameOfTheService)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[u"sender"_s].toString();
    forge(u"ActivationToken"_s, {1U, u"forged"_s}, us);
    forge(u"ActionInvoked"_s, {1U, u"default"_s}, us);
    forge(u"NotificationClosed"_s, {1U, 2U}, us);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_NE(qgetenv("XDG_ACTIVATION_TOKEN"), "forged");
}

TEST_F(AnswersTest, IgnoreWhatOthersSendToUsAloneInTheNameOfTheBus)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[u"sender"_s].toString();
    const QString name = u"org.freedesktop.Notifications"_s;
    forgeOfTheBus(u"NameOwnerChanged"_s, {name, u":1.0"_s, QString()}, us);
    forgeOfTheBus(u"ActivatableServicesChanged"_s, {}, us);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{}) << "the service was taken for gone";
    EXPECT_TRUE(Growl_IsRunning());
}

TEST_F(AnswersTest, AreNotTakenFromAStrangerWhileNobodyOwnsTheName)
{
    auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[u"sender"_s].toString();
    service->kill();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    forge(u"ActionInvoked"_s, {1U, u"default"_s}, us);
    service = startService();
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, IgnoresSignalsOfOtherTypes)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"wrong-signals 1"_s);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(AnswersTest, ReportsAPopupThatTheServiceRefusesAsTimedOut)
{
    const auto service = startService({u"refuse"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, ReportsTheOldestAsTimedOutWhenMoreThanAThousandWait)
{
    const auto service = startService();
    for (int number = 0; number < 1001; ++number)
        postClickable(std::to_string(number));
    ASSERT_TRUE(answers().empty()) << "call-backs come from the event loop only";
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out 0"});
    // That one was still held. The next oldest is shown, and a click on it would do nothing any more: it is closed.
    ASSERT_TRUE(waitForPopups(*service, 1000));
    postClickable("1001");
    const auto closed = [&] { return service->calls(u"CloseNotification"_s); };
    ASSERT_TRUE(waitFor([&] { return !closed().isEmpty(); }));
    ASSERT_TRUE(waitForPopups(*service, 1001));
    ASSERT_EQ(closed().size(), 1);
    EXPECT_EQ(closed()[0][u"id"_s], 1);
    EXPECT_EQ(service->calls()[0][u"id"_s], 1);
    EXPECT_EQ(answers(), (Answers{"timed out 0", "timed out 1"}));
}

TEST_F(AnswersTest, ReportsEveryWaitingPopupOnceWhenTheServiceDies)
{
    const auto service = startService();
    postClickable("a");
    postClickable("b");
    letEverythingArrive(*service);
    service->kill();
    ASSERT_TRUE(waitFor([] { return answers().size() >= 2; }));
    const auto next = startService();
    letEverythingArrive(*next);
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b"));
}

TEST_F(AnswersTest, ForgetsIdsOfAServiceThatWasRestarted)
{
    auto service = startService();
    postClickable("old");
    letEverythingArrive(*service);
    service->kill();
    ASSERT_TRUE(waitFor([] { return answers() == Answers{"timed out old"}; }));
    service = startService();
    postClickable("new");
    ASSERT_TRUE(waitForPopups(*service, 1));
    ASSERT_EQ(service->calls().first()[u"id"_s], 1) << "the same id once more";
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"timed out old", "clicked new"}));
}

TEST_F(AnswersTest, ReportsWhatAReplacedServiceShowedAsTimedOut)
{
    const auto service = startService();
    postClickable("old");
    letEverythingArrive(*service);
    const auto next = startService({u"replace"_s});
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    postClickable("new");
    ASSERT_TRUE(waitForPopups(*next, 1));
    // It lives on without the name: what it says is not the service's any more.
    service->tell(u"click 1"_s);
    next->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"timed out old", "clicked new"}));
}

TEST_F(AnswersTest, ReportsPopupsOfAStuckServiceThatIsKilledAsTimedOut)
{
    const auto service = startService({u"mute"_s});
    postClickable("a");
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"GetCapabilities"_s).isEmpty(); }));
    service->stop();
    service->kill();
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, CallsNobodyAfterTheApplicationWithdrew)
{
    const auto service = startService();
    postClickable("a");
    TestPosting posting;
    posting.context = "b";
    posting.clickCallBack = onOwnClick;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 2));
    Growl_SetDelegate(nullptr);
    postClickable("dropped");
    service->tell(u"click 1\nclick 2"_s);
    ASSERT_TRUE(waitFor([&] { return service->calls(u"CloseNotification"_s).size() == 2; }));
    registerNames({u"Message"_s});
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(service->calls().size(), 3);
}

TEST_F(AnswersTest, TellsTheDelegateThatIsRegisteredWhenTheAnswerComes)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    registerNames({u"Message"_s});
    service->tell(u"click 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(AnswersTest, TellsNobodyOfPopupsThatWerePostedBeforeAWithdrawal)
{
    const auto service = startService();
    postClickable("0");
    postClickable("1");
    ASSERT_TRUE(waitForPopups(*service, 2));
    Growl_SetDelegate(nullptr);
    registerNames({u"Message"_s});
    // Equal contexts, as those of an application that counts from the start again.
    postClickable("0");
    ASSERT_TRUE(waitForPopups(*service, 3));
    service->tell(u"click 1\nclose 2\nclick 3"_s);
    letEverythingArrive(*service);
    service->kill();
    EXPECT_EQ(answers(), Answers{"clicked 0"});
}

TEST_F(AnswersTest, LetsACallBackPostAndRegister)
{
    const auto service = startService({u"click-last"_s});
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = [](CFPropertyListRef context) {
        onOwnClick(context);
        registerNames({u"Message"_s});
        postClickable("posted by the call-back");
    };
    post(posting);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"own a", "clicked posted by the call-back"}));
}

TEST_F(AnswersTest, LetsACallBackRunAnEventLoopOfItsOwn)
{
    const auto service = startService({u"click-last"_s});
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = [](CFPropertyListRef context) {
        postClickable("b");
        EXPECT_TRUE(waitFor([] { return answers() == Answers{"clicked b"}; }));
        onOwnClick(context);
    };
    post(posting);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"clicked b", "own a"}));
}

TEST_F(AnswersTest, LeaveNothingBehindThatCouldBeClickedWhenTheProgramEnds)
{
    const auto service = startService();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QString::fromUtf8(SHORT_PROGRAM), {u"settled"_s});
    ASSERT_TRUE(waitFor([&] { return !service->calls(u"CloseNotification"_s).isEmpty(); }));
    EXPECT_EQ(service->calls(u"CloseNotification"_s)[0][u"id"_s], 1);
    ASSERT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(AnswersTest, LeaveNothingBehindAfterEachOfTwoApplicationObjects)
{
    const auto service = startService();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QString::fromUtf8(SHORT_PROGRAM), {u"again"_s});
    const auto closed = [&] { return service->calls(u"CloseNotification"_s); };
    ASSERT_TRUE(waitFor([&] { return closed().size() == 2; }));
    ASSERT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(closed()[1][u"id"_s], 2);
}

TEST_F(AnswersTest, TimeOutWhenTheirPopupsAreWithdrawn)
{
    const auto service = startService();
    postClickable("a");
    postClickable("b");
    ASSERT_TRUE(waitForPopups(*service, 2));
    zepaWithdrawPopups(u"Message"_s, u"Title"_s);
    const auto closed = [&] { return service->calls(u"CloseNotification"_s); };
    ASSERT_TRUE(waitFor([&] { return closed().size() == 2 && answers().size() == 2; }));
    EXPECT_EQ(closed()[0][u"id"_s], 1);
    EXPECT_EQ(closed()[1][u"id"_s], 2);
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
}

TEST_F(AnswersTest, AreNotAskedOfAServiceWithoutActions)
{
    const auto service = startService({u"no-actions"_s});
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_TRUE(service->calls().first()[u"actions"_s].toArray().isEmpty());
    service->tell(u"close 1"_s);
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}
