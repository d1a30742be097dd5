// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/popups.h>

#include <QJsonArray>
#include <gmock/gmock.h>

namespace {

using AnswersTest = ServiceTest;

QByteArray tokenInCallBack;

void noteToken(CFPropertyListRef /*context*/)
{
    tokenInCallBack = qgetenv("XDG_ACTIVATION_TOKEN");
}

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
    service->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([&] { return !service->calls(QStringLiteral("CloseNotification")).isEmpty(); }));
    service->tell(QStringLiteral("click 1"));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_EQ(service->calls(QStringLiteral("CloseNotification")).first()[QStringLiteral("id")], 1);
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
    service->tell(QStringLiteral("click 1"));
    service->tell(QStringLiteral("close 2"));
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"own a", "timed out b"}));
}

TEST_F(AnswersTest, ReportsAClosedPopupAsTimedOut)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("close 1"));
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
    service->tell(QStringLiteral("close 1\nclick 1"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, TakesAClickThatComesBeforeTheReply)
{
    const auto service = startService({QStringLiteral("click-first")});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(AnswersTest, TakesAClosingThatComesBeforeTheReply)
{
    const auto service = startService({QStringLiteral("close-first")});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, TakesNoClickThatComesBehindTheClosingBeforeTheReply)
{
    const auto service = startService({QStringLiteral("close-click-first")});
    postClickable("a");
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, AnswersEachOfTheIdenticalPopupsThatAServiceMerges)
{
    const auto service = startService({QStringLiteral("same-id")});
    postClickable("a");
    postClickable("b");
    postClickable("c");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b"));
    service->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([] { return answers().size() == 3; }));
    EXPECT_EQ(answers().back(), "clicked c");
}

TEST_F(AnswersTest, AnswersEachOfThePopupsThatAServiceMergesUnderIdsOfTheirOwn)
{
    const auto service = startService({QStringLiteral("merge")});
    postClickable("a");
    postClickable("b");
    postClickable("c");
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_THAT(answers(), testing::UnorderedElementsAre("timed out a", "timed out b"));
    service->tell(QStringLiteral("click 3\nclose 3"));
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
    service->tell(QStringLiteral("close 1"));
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
    service->tell(QStringLiteral("click 1\ninvoke 2 other\ninvoke 2 "));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    for (const QJsonObject& call : service->calls(QStringLiteral("CloseNotification")))
        EXPECT_EQ(call[QStringLiteral("id")], 3) << "only the last was clicked";
}

TEST_F(AnswersTest, HandsTheActivationTokenOnBeforeTheCallBack)
{
    const auto service = startService();
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = noteToken;
    post(posting);
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("token 1 first\ntoken 1 token-of-a\nclick 1"));
    ASSERT_TRUE(waitFor([] { return !tokenInCallBack.isEmpty(); }));
    EXPECT_EQ(tokenInCallBack, "token-of-a");
}

TEST_F(AnswersTest, DoesNotHandOnTheTokenOfAnotherPopup)
{
    qunsetenv("XDG_ACTIVATION_TOKEN");
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("token 2 token-of-b\nclick 1"));
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
    service->tell(QStringLiteral("token 1 token-of-a\ntoken 2 token-of-b\nclick 1"));
    ASSERT_TRUE(waitFor([] { return tokenInCallBack == "token-of-a"; }));
    service->tell(QStringLiteral("click 2"));
    ASSERT_TRUE(waitFor([] { return tokenInCallBack == "token-of-b"; }));
    service->tell(QStringLiteral("click 3"));
    ASSERT_TRUE(waitFor([] { return tokenInCallBack.isEmpty(); }));
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
    service->tell(QStringLiteral("click 1\nclick 2"));
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
    forge(QStringLiteral("ActionInvoked"), {1U, QStringLiteral("default")});
    forge(QStringLiteral("NotificationClosed"), {1U, 2U});
    forge(QStringLiteral("ActivationToken"), {1U, QStringLiteral("forged")});
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    service->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_NE(qgetenv("XDG_ACTIVATION_TOKEN"), "forged");
}

TEST_F(AnswersTest, IgnoreWhatOthersSendToUsAloneInTheNameOfTheService)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[QStringLiteral("sender")].toString();
    forge(QStringLiteral("ActivationToken"), {1U, QStringLiteral("forged")}, us);
    forge(QStringLiteral("ActionInvoked"), {1U, QStringLiteral("default")}, us);
    forge(QStringLiteral("NotificationClosed"), {1U, 2U}, us);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    service->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_NE(qgetenv("XDG_ACTIVATION_TOKEN"), "forged");
}

TEST_F(AnswersTest, IgnoreWhatOthersSendToUsAloneInTheNameOfTheBus)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[QStringLiteral("sender")].toString();
    const QString name = QStringLiteral("org.freedesktop.Notifications");
    forgeOfTheBus(QStringLiteral("NameOwnerChanged"), {name, QStringLiteral(":1.0"), QString()}, us);
    forgeOfTheBus(QStringLiteral("ActivatableServicesChanged"), {}, us);
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{}) << "the service was taken for gone";
    EXPECT_TRUE(Growl_IsRunning());
}

TEST_F(AnswersTest, AreNotTakenFromAStrangerWhileNobodyOwnsTheName)
{
    auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString us = service->calls().first()[QStringLiteral("sender")].toString();
    service->kill();
    ASSERT_TRUE(waitFor([] { return !Growl_IsRunning(); }));
    forge(QStringLiteral("ActionInvoked"), {1U, QStringLiteral("default")}, us);
    service = startService();
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(AnswersTest, IgnoresSignalsOfOtherTypes)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("wrong-signals 1"));
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(AnswersTest, ReportsAPopupThatTheServiceRefusesAsTimedOut)
{
    const auto service = startService({QStringLiteral("refuse")});
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
    const auto closed = [&] { return service->calls(QStringLiteral("CloseNotification")); };
    ASSERT_TRUE(waitFor([&] { return !closed().isEmpty(); }));
    ASSERT_TRUE(waitForPopups(*service, 1001));
    ASSERT_EQ(closed().size(), 1);
    EXPECT_EQ(closed()[0][QStringLiteral("id")], 1);
    EXPECT_EQ(service->calls()[0][QStringLiteral("id")], 1);
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
    ASSERT_EQ(service->calls().first()[QStringLiteral("id")], 1) << "the same id once more";
    service->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"timed out old", "clicked new"}));
}

TEST_F(AnswersTest, ReportsWhatAReplacedServiceShowedAsTimedOut)
{
    const auto service = startService();
    postClickable("old");
    letEverythingArrive(*service);
    const auto next = startService({QStringLiteral("replace")});
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    postClickable("new");
    ASSERT_TRUE(waitForPopups(*next, 1));
    // It lives on without the name: what it says is not the service's any more.
    service->tell(QStringLiteral("click 1"));
    next->tell(QStringLiteral("click 1"));
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"timed out old", "clicked new"}));
}

TEST_F(AnswersTest, ReportsPopupsOfAStuckServiceThatIsKilledAsTimedOut)
{
    const auto service = startService({QStringLiteral("mute")});
    postClickable("a");
    ASSERT_TRUE(waitFor([&] { return !service->calls(QStringLiteral("GetCapabilities")).isEmpty(); }));
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
    service->tell(QStringLiteral("click 1\nclick 2"));
    ASSERT_TRUE(waitFor([&] { return service->calls(QStringLiteral("CloseNotification")).size() == 2; }));
    registerNames({QStringLiteral("Message")});
    letEverythingArrive(*service);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(service->calls().size(), 3);
}

TEST_F(AnswersTest, TellsTheDelegateThatIsRegisteredWhenTheAnswerComes)
{
    const auto service = startService();
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    registerNames({QStringLiteral("Message")});
    service->tell(QStringLiteral("click 1"));
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
    registerNames({QStringLiteral("Message")});
    // Equal contexts, as those of an application that counts from the start again.
    postClickable("0");
    ASSERT_TRUE(waitForPopups(*service, 3));
    service->tell(QStringLiteral("click 1\nclose 2\nclick 3"));
    letEverythingArrive(*service);
    service->kill();
    EXPECT_EQ(answers(), Answers{"clicked 0"});
}

TEST_F(AnswersTest, LetsACallBackPostAndRegister)
{
    const auto service = startService({QStringLiteral("click-last")});
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = [](CFPropertyListRef context) {
        onOwnClick(context);
        registerNames({QStringLiteral("Message")});
        postClickable("posted by the call-back");
    };
    post(posting);
    ASSERT_TRUE(waitFor([] { return answers().size() == 2; }));
    EXPECT_EQ(answers(), (Answers{"own a", "clicked posted by the call-back"}));
}

TEST_F(AnswersTest, LetsACallBackRunAnEventLoopOfItsOwn)
{
    const auto service = startService({QStringLiteral("click-last")});
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
    program.start(QStringLiteral(SHORT_PROGRAM), {QStringLiteral("settled")});
    ASSERT_TRUE(waitFor([&] { return !service->calls(QStringLiteral("CloseNotification")).isEmpty(); }));
    EXPECT_EQ(service->calls(QStringLiteral("CloseNotification"))[0][QStringLiteral("id")], 1);
    ASSERT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(AnswersTest, LeaveNothingBehindAfterEachOfTwoApplicationObjects)
{
    const auto service = startService();
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QStringLiteral(SHORT_PROGRAM), {QStringLiteral("again")});
    const auto closed = [&] { return service->calls(QStringLiteral("CloseNotification")); };
    ASSERT_TRUE(waitFor([&] { return closed().size() == 2; }));
    ASSERT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(closed()[1][QStringLiteral("id")], 2);
}

TEST_F(AnswersTest, TimeOutWhenTheirPopupsAreWithdrawn)
{
    const auto service = startService();
    postClickable("a");
    postClickable("b");
    ASSERT_TRUE(waitForPopups(*service, 2));
    zepaWithdrawPopups(QStringLiteral("Message"), QStringLiteral("Title"));
    const auto closed = [&] { return service->calls(QStringLiteral("CloseNotification")); };
    ASSERT_TRUE(waitFor([&] { return closed().size() == 2 && answers().size() == 2; }));
    EXPECT_EQ(closed()[0][QStringLiteral("id")], 1);
    EXPECT_EQ(closed()[1][QStringLiteral("id")], 2);
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
}

TEST_F(AnswersTest, AreNotAskedOfAServiceWithoutActions)
{
    const auto service = startService({QStringLiteral("no-actions")});
    postClickable("a");
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_TRUE(service->calls().first()[QStringLiteral("actions")].toArray().isEmpty());
    service->tell(QStringLiteral("close 1"));
    ASSERT_TRUE(waitFor([] { return !answers().empty(); }));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}
