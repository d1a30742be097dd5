// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include <zepa_platform/popups.h>

#include <QDBusMessage>
#include <QSet>
#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Before the application is registered, since that chooses the service: a sandbox that keeps the notification service
/// from us, as there is none.
struct Sandbox
{
    Sandbox() { qputenv("SNAP", "/snap/client/1"); }
};

class PortalTest : Sandbox, public ServiceTest
{
protected:
    std::unique_ptr<ServiceProcess> startPortal(const QStringList& options = {})
    {
        auto portal = startService(QStringList{u"portal"_s} + options);
        EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
        return portal;
    }
    static QList<QJsonObject> added(ServiceProcess& portal) { return portal.calls(u"AddNotification"_s); }
    static QStringList removed(ServiceProcess& portal)
    {
        QStringList ids;
        for (const QJsonObject& call : portal.calls(u"RemoveNotification"_s))
            ids.append(call[u"id"_s].toString());
        return ids;
    }
    static QString idOf(ServiceProcess& portal, int number)
    {
        return added(portal).value(number - 1)[u"id"_s].toString();
    }
    static bool waitForAdded(ServiceProcess& portal, int count)
    {
        return waitFor([&] { return added(portal).size() >= count; });
    }
    /// Posts one more, clicks it and waits for that: by then everything before it has arrived too.
    static void letEverythingCome(ServiceProcess& portal)
    {
        const auto count = static_cast<int>(added(portal).size()) + 1;
        postClickable("last");
        ASSERT_TRUE(waitForAdded(portal, count));
        portal.tell(u"click %1"_s.arg(count));
        ASSERT_TRUE(waitFor([] { return !answers().empty() && answers().back() == "clicked last"; }));
        answers().pop_back();
    }
};

} // namespace

TEST_F(PortalTest, ShowsAPostingInTheTypesOfTheInterface)
{
    const auto portal = startPortal();
    TestPosting posting;
    posting.title = u"<Ann>"_s;
    posting.text = u"a < b & c"_s;
    posting.context = "a";
    posting.icon = pictureFile({300, 300});
    posting.priority = 2;
    post(posting);
    ASSERT_TRUE(waitForAdded(*portal, 1));
    const QJsonObject call = added(*portal).first();
    EXPECT_EQ(call[u"signature"_s], u"sa{sv}"_s);
    // A portal of the first version refuses everything else.
    const QJsonObject types{{u"title"_s, u"s"_s},
                            {u"body"_s, u"s"_s},
                            {u"priority"_s, u"s"_s},
                            {u"icon"_s, u"(sv)"_s},
                            {u"default-action"_s, u"s"_s}};
    EXPECT_EQ(call[u"types"_s].toObject(), types);
    const QJsonObject values = call[u"values"_s].toObject();
    EXPECT_EQ(values[u"title"_s], u"<Ann>"_s);
    EXPECT_EQ(values[u"body"_s], u"a < b & c"_s);
    EXPECT_EQ(values[u"priority"_s], u"urgent"_s);
    EXPECT_EQ(values[u"default-action"_s], u"default"_s);
    const QJsonObject icon{{u"kind"_s, u"bytes"_s}, {u"width"_s, 128}, {u"height"_s, 128}};
    EXPECT_EQ(call[u"icon"_s].toObject(), icon);
}

TEST_F(PortalTest, OffersNoActionWhereAClickMeansNothing)
{
    const auto portal = startPortal();
    post({});
    ASSERT_TRUE(waitForAdded(*portal, 1));
    const QJsonObject values = added(*portal).first()[u"values"_s].toObject();
    EXPECT_FALSE(values.contains(u"default-action"_s));
    EXPECT_FALSE(values.contains(u"icon"_s));
}

TEST_F(PortalTest, SaysMoreToAPortalOfTheSecondVersion)
{
    const auto portal = startPortal({u"version-2"_s});
    zepaSetPopupKind(u"Message"_s, {.category = u"im.received"_s, .isTransient = true});
    zepaSetPopupKind(u"Mail"_s, {.category = u"email.arrived"_s, .isTransient = false});
    post({});
    TestPosting mail;
    mail.name = u"Mail"_s;
    post(mail);
    ASSERT_TRUE(waitForAdded(*portal, 2));
    const QJsonObject message = added(*portal).first()[u"values"_s].toObject();
    EXPECT_EQ(message[u"category"_s], u"im.received"_s);
    EXPECT_EQ(message[u"sound"_s], u"silent"_s);
    EXPECT_EQ(added(*portal).first()[u"types"_s][u"display-hint"_s], u"as"_s);
    // One that the portal does not list could be an error.
    const QJsonObject other = added(*portal).last()[u"values"_s].toObject();
    EXPECT_FALSE(other.contains(u"category"_s));
    EXPECT_FALSE(other.contains(u"display-hint"_s));
}

TEST_F(PortalTest, TakesAPortalThatTellsNoVersionForTheFirst)
{
    const auto portal = startPortal({u"no-version"_s});
    post({});
    ASSERT_TRUE(waitForAdded(*portal, 1));
    EXPECT_FALSE(added(*portal).first()[u"values"_s].toObject().contains(u"sound"_s));
    // And asks no more, until there is another one.
    post({});
    ASSERT_TRUE(waitForAdded(*portal, 2));
    EXPECT_EQ(portal->calls(u"GetAll"_s).size(), 1);
}

TEST_F(PortalTest, SendsWhatItHeldToAPortalThatNeverTellsItsVersion)
{
    const auto portal = startPortal({u"mute-version"_s});
    postClickable("a");
    postClickable("b");
    ASSERT_TRUE(waitForAdded(*portal, 2));
    ASSERT_TRUE(waitUntilSettled());
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PortalTest, ReportsAClickOnceAndRemovesThePopup)
{
    const auto portal = startPortal();
    postClickable("a");
    postClickable("b");
    ASSERT_TRUE(waitForAdded(*portal, 2));
    ASSERT_TRUE(waitUntilSettled());
    portal->tell(u"click 1\nclick 1"_s);
    ASSERT_TRUE(waitForAnswers(1));
    ASSERT_TRUE(waitFor([&] { return !removed(*portal).isEmpty(); }));
    EXPECT_EQ(removed(*portal), QStringList{idOf(*portal, 1)});
    letEverythingCome(*portal);
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PortalTest, TakesAClickThatComesBeforeTheReply)
{
    const auto portal = startPortal({u"click-first"_s});
    postClickable("a");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PortalTest, TakesOnlyTheClickForAClick)
{
    const auto portal = startPortal();
    postClickable("a");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    portal->tell(u"invoke 1 another"_s);
    letEverythingCome(*portal);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PortalTest, HandsOnTheActivationToken)
{
    const auto portal = startPortal();
    TestPosting posting;
    posting.context = "a";
    posting.clickCallBack = noteToken;
    post(posting);
    ASSERT_TRUE(waitForAdded(*portal, 1));
    portal->tell(u"token 1 abc"_s);
    EXPECT_TRUE(waitFor([] { return notedToken() == "abc"; }));
}

TEST_F(PortalTest, TakesAClickWithAnOddTokenForOneWithout)
{
    const auto portal = startPortal();
    postClickable("a");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    portal->tell(u"odd-token 1"_s);
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"clicked a"});
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(PortalTest, GivesEachPopupAnIdOfItsOwn)
{
    const auto portal = startPortal();
    constexpr int count = 200; // more than may be under way at once
    for (int number = 0; number < count; ++number)
        post({});
    ASSERT_TRUE(waitForAdded(*portal, count));
    QSet<QString> ids;
    for (const QJsonObject& call : added(*portal))
        ids.insert(call[u"id"_s].toString());
    EXPECT_EQ(ids.size(), count);
    EXPECT_EQ(portal->calls(u"GetAll"_s).size(), 1);
}

TEST_F(PortalTest, CountsARefusedPopupAsTimedOut)
{
    const auto portal = startPortal({u"refuse"_s});
    postClickable("a");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PortalTest, CountsPopupsOfAPortalThatEndsAsTimedOutAndShowsLaterOnesByTheNext)
{
    auto portal = startPortal();
    postClickable("a");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    ASSERT_TRUE(waitUntilSettled());
    const QString first = idOf(*portal, 1);
    portal->kill();
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::None; }));
    portal = startPortal({u"version-2"_s});
    postClickable("b");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    EXPECT_NE(idOf(*portal, 1), first);
    // It is asked anew what it can do.
    EXPECT_TRUE(added(*portal).first()[u"values"_s].toObject().contains(u"sound"_s));
    portal->tell(u"click 1"_s);
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(answers(), (Answers{"timed out a", "clicked b"}));
}

TEST_F(PortalTest, BelievesNoClickOfAnotherConnection)
{
    const auto portal = startPortal();
    postClickable("a");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    ASSERT_TRUE(waitUntilSettled());
    const QString id = idOf(*portal, 1);
    const QString us = added(*portal).first()[u"sender"_s].toString();
    for (const QString& receiver : {us, QString()}) {
        QDBusMessage click =
            QDBusMessage::createTargetedSignal(receiver, u"/org/freedesktop/portal/desktop"_s,
                                               u"org.freedesktop.portal.Notification"_s, u"ActionInvoked"_s);
        emitFromAStranger(click, {id, u"default"_s, QVariant(QVariantList())});
    }
    letEverythingCome(*portal);
    EXPECT_EQ(answers(), Answers{});
    portal->tell(u"click 1"_s);
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PortalTest, RemovesTheOldestWhenMoreThanAThousandWait)
{
    const auto portal = startPortal();
    constexpr int limit = 1000;
    for (int number = 1; number <= limit; ++number) {
        postClickable(std::to_string(number));
        // Not more at once than are held, and in rounds, so that none is given up on its way.
        if (number % 100 == 0) {
            ASSERT_TRUE(waitUntilSettled());
        }
    }
    EXPECT_EQ(answers(), Answers{});
    postClickable("one more");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"timed out 1"});
    ASSERT_TRUE(waitFor([&] { return !removed(*portal).isEmpty(); }));
    EXPECT_EQ(removed(*portal), QStringList{idOf(*portal, 1)});
}

TEST_F(PortalTest, RemovesPopupsThatAreWithdrawn)
{
    const auto portal = startPortal();
    TestPosting posting;
    posting.title = u"Ann"_s;
    post(posting);
    posting.title = u"Bob"_s;
    post(posting);
    ASSERT_TRUE(waitForAdded(*portal, 2));
    ASSERT_TRUE(waitUntilSettled());
    zepaWithdrawPopups(u"Message"_s, u"Bob"_s);
    ASSERT_TRUE(waitFor([&] { return !removed(*portal).isEmpty(); }));
    EXPECT_EQ(removed(*portal), QStringList{idOf(*portal, 2)});
}

TEST_F(PortalTest, GivesUpAPortalThatIsStuckAndGoesOnWhenItWakes)
{
    const auto portal = startPortal();
    postClickable("first");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    ASSERT_TRUE(waitUntilSettled());
    portal->stop();
    // Those under way, a thousand held, and more; but no more that wait for an answer than may wait.
    constexpr int count = 900;
    for (int number = 1; number <= count; ++number)
        postClickable("x");
    for (int number = 1; number <= 300; ++number)
        post({});
    // Nothing was told from inside of posting, and each of them is told within the limits.
    ASSERT_TRUE(waitUntilSettled());
    ASSERT_TRUE(waitForAnswers(count));
    EXPECT_EQ(std::count(answers().begin(), answers().end(), "timed out x"), count);
    portal->resume();
    // Some fifty were on their way to it. They come late, and go again.
    ASSERT_TRUE(waitFor([&] { return removed(*portal).size() >= 50; }));
    EXPECT_LE(added(*portal).size(), 70);
    answers().clear();
    letEverythingCome(*portal);
    portal->tell(u"click 1"_s);
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"clicked first"});
}

TEST_F(PortalTest, CountsPopupsAsTimedOutWhenTheBusGoes)
{
    const auto portal = startPortal();
    postClickable("a");
    ASSERT_TRUE(waitForAdded(*portal, 1));
    ASSERT_TRUE(waitUntilSettled());
    killBus();
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::NoBus; }));
    postClickable("b");
    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
}

TEST_F(PortalTest, WithoutAPortalThereIsNoService)
{
    EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::None; }));
    postClickable("a");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}
