// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_popup_service.h"

#include "connection_fixture.h"
#include "freedesktop/notification_service.h"
#include "freedesktop/scripted_names.h"
#include "scripted_bus.h"

#include <QStringList>
#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using zepa::freedesktop::BusPopupService;
using zepa::freedesktop::NotificationService;
using zepa::growl::PopupPosting;

PopupPosting posting(const QString& applicationName = {}, bool clickable = false)
{
    PopupPosting result;
    result.applicationName = applicationName;
    result.clickable = clickable;
    return result;
}

/// Replies with an id in anybody's name.
void replyId(const char* sender, sd_bus_message* call, std::uint32_t id)
{
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_set_sender(reply, sender);
    sd_bus_message_append(reply, "u", id);
    sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
    sd_bus_message_unref(reply);
}

void replyNames(const char* sender, sd_bus_message* call, const QByteArrayList& names)
{
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_set_sender(reply, sender);
    sd_bus_message_open_container(reply, 'a', "s");
    for (const QByteArray& name : names)
        sd_bus_message_append(reply, "s", name.constData());
    sd_bus_message_close_container(reply);
    sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
    sd_bus_message_unref(reply);
}

/// A bus where `service` owns the name, and the test speaks for both.
class BusPopupServiceTest : public ConnectionTest
{
protected:
    BusPopupServiceTest() : bus(socketPath()), notifications(connection)
    {
        bus.answer("GetNameOwner", [](sd_bus_message* call) { ScriptedBus::replyFrom(busItself, call, serviceOwner); });
        bus.answer("GetCapabilities", [this](sd_bus_message* call) { replyNames(serviceOwner, call, capabilities); });
        bus.answer("Notify", [this](sd_bus_message* call) { replyId(serviceOwner, call, ++lastId); });
        using Service = zepa::growl::PopupService;
        QObject::connect(&notifications, &Service::shown, &connection,
                         [this](quint64 ticket, quint64 id) { told.push_back(text("shown", ticket, id)); });
        QObject::connect(&notifications, &Service::notShown, &connection,
                         [this](quint64 ticket) { told.push_back(text("not shown", ticket)); });
        QObject::connect(&notifications, &Service::clicked, &connection,
                         [this](quint64 id) { told.push_back(text("clicked", id)); });
        QObject::connect(&notifications, &Service::closed, &connection,
                         [this](quint64 id) { told.push_back(text("closed", id)); });
    }

    static std::string text(const char* what, quint64 first) { return std::string(what) + ' ' + std::to_string(first); }
    static std::string text(const char* what, quint64 first, quint64 second)
    {
        return text(what, first) + ' ' + std::to_string(second);
    }

    void post(quint64 ticket, bool clickable = false)
    {
        notifications.post(posting(QString::number(ticket), clickable), ticket);
    }
    bool isTold(std::size_t count)
    {
        return runUntil([&] { return told.size() >= count; });
    }
    void changeOwner(const char* oldOwner, const char* newOwner)
    {
        bus.signalFrom(busItself, "/org/freedesktop/DBus", busItself, "NameOwnerChanged", "sss", serviceName, oldOwner,
                       newOwner);
    }
    void invoke(const char* sender, std::uint32_t id)
    {
        bus.signalFrom(sender, "/org/freedesktop/Notifications", serviceName, "ActionInvoked", "us", id, "default");
    }
    qsizetype questionCount() const { return bus.callsOf("GetCapabilities").size(); }

    static constexpr const char* serviceName = "org.freedesktop.Notifications";

    ScriptedBus bus;
    QByteArrayList capabilities{"actions"};
    std::uint32_t lastId = 0;
    NotificationService notifications;
    std::vector<std::string> told;
};

} // namespace

TEST_F(BusPopupServiceTest, TellsTheIdOfEachPosting)
{
    post(1);
    post(2);
    EXPECT_TRUE(told.empty());
    ASSERT_TRUE(isTold(2));
    EXPECT_THAT(told, testing::ElementsAre("shown 1 1", "shown 2 2"));
}

TEST_F(BusPopupServiceTest, HasFiftyCallsUnderWayAndTheRestInItsQueue)
{
    // From here on nothing is held for what the service can do.
    post(0);
    ASSERT_TRUE(isTold(1));
    told.clear();
    bus.answer("Notify", [this](sd_bus_message* call) { bus.keep(call); });
    for (quint64 ticket = 1; ticket <= 200; ++ticket)
        post(ticket);
    ASSERT_TRUE(runUntil([&] { return bus.kept().size() == 50; }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.kept().size(), 50U);
    EXPECT_EQ(connection.callsUnderWay(), 50);
    EXPECT_TRUE(told.empty());
    // Each reply makes room for one.
    for (int i = 0; i < 10; ++i)
        replyId(serviceOwner, bus.kept()[static_cast<std::size_t>(i)].get(), ++lastId);
    ASSERT_TRUE(runUntil([&] { return bus.kept().size() == 60; }));
    EXPECT_THAT(told, testing::SizeIs(10));
    const QStringList names = bus.callsOf("Notify");
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(names[i], QString::number(i)) << "out of order";
}

TEST_F(BusPopupServiceTest, GivesUpTheOldestWhenMoreThanAThousandAreHeld)
{
    bus.answer("GetCapabilities", [this](sd_bus_message* call) { bus.keep(call); });
    for (quint64 ticket = 1; ticket <= 1002; ++ticket)
        post(ticket);
    EXPECT_THAT(told, testing::ElementsAre("not shown 1", "not shown 2"));
    ASSERT_TRUE(runUntil([&] { return !bus.kept().empty(); }));
    replyNames(serviceOwner, bus.kept()[0].get(), {});
    ASSERT_TRUE(isTold(1002));
    EXPECT_EQ(bus.callsOf("Notify").size(), 1000);
}

TEST_F(BusPopupServiceTest, AnswersEachOnceWhenTheServiceNeverReplies)
{
    bus.answer("Notify", [](sd_bus_message*) {});
    for (quint64 ticket = 1; ticket <= 120; ++ticket)
        post(ticket, true);
    ASSERT_TRUE(isTold(120));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.callsOf("Notify").size(), 50) << "the bus is not rid of the first fifty";
    for (quint64 ticket = 1; ticket <= 120; ++ticket)
        EXPECT_EQ(std::count(told.begin(), told.end(), text("not shown", ticket)), 1);
}

TEST_F(BusPopupServiceTest, GoesOnWithTheNextServiceAfterAStuckOneHasGone)
{
    bus.answer("Notify", [this](sd_bus_message* call) { bus.keep(call); });
    for (quint64 ticket = 1; ticket <= 60; ++ticket)
        post(ticket);
    ASSERT_TRUE(runUntil([&] { return bus.kept().size() == 50; }));
    bus.answer("Notify", [this](sd_bus_message* call) { replyId(stranger, call, ++lastId); });
    bus.answer("GetCapabilities", [this](sd_bus_message* call) { replyNames(stranger, call, capabilities); });
    // In the order of a bus: the name first, then an error for each call.
    changeOwner(serviceOwner, "");
    for (const auto& call : bus.kept())
        ScriptedBus::refuse(call.get());
    changeOwner("", stranger);
    ASSERT_TRUE(isTold(60));
    for (quint64 ticket = 1; ticket <= 50; ++ticket)
        EXPECT_THAT(told, testing::Contains(text("not shown", ticket)));
    EXPECT_EQ(told.back(), "shown 60 10");
}

TEST_F(BusPopupServiceTest, PostsAgainWhatTheBusRefusesForItsLimits)
{
    post(0);
    ASSERT_TRUE(isTold(1));
    told.clear();
    std::size_t underWay = 0;
    bus.answer("Notify", [&](sd_bus_message* call) {
        constexpr std::size_t limit = 10;
        if (underWay == limit)
            return ScriptedBus::refuseForLimits(call);
        ++underWay;
        bus.keep(call);
    });
    for (quint64 ticket = 1; ticket <= 200; ++ticket)
        post(ticket);
    ASSERT_TRUE(runUntil([&] { return connection.callsUnderWay() == 10; }));
    EXPECT_EQ(bus.callsOf("Notify").size(), 51);
    EXPECT_TRUE(told.empty());
    for (std::size_t answered = 0; answered < 200; ++answered) {
        ASSERT_TRUE(runUntil([&] { return bus.kept().size() > answered; }));
        --underWay;
        replyId(serviceOwner, bus.kept()[answered].get(), ++lastId);
    }
    ASSERT_TRUE(isTold(200));
    for (quint64 ticket = 1; ticket <= 200; ++ticket)
        EXPECT_EQ(told[ticket - 1], text("shown", ticket, ticket + 1)) << "out of order";
    EXPECT_LE(bus.callsOf("Notify").size(), 1 + 200 + 40 + 20) << "each that is tried again after a second is one more";
}

TEST_F(BusPopupServiceTest, GivesUpWhatABusAlwaysRefuses)
{
    bus.answer("Notify", ScriptedBus::refuseForLimits);
    for (quint64 ticket = 1; ticket <= 20; ++ticket)
        post(ticket, true);
    ASSERT_TRUE(isTold(20));
    for (quint64 ticket = 1; ticket <= 20; ++ticket)
        EXPECT_EQ(told[ticket - 1], text("not shown", ticket));
    EXPECT_LE(bus.callsOf("Notify").size(), 20 + 20) << "it is not asked without end";
}

TEST_F(BusPopupServiceTest, AsksAgainWhatTheServiceCanDoWhenTheBusRefusedForItsLimits)
{
    bus.answer("GetCapabilities", ScriptedBus::refuseForLimits);
    post(1);
    ASSERT_TRUE(runUntil([&] { return questionCount() == 1; }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(bus.callsOf("Notify").isEmpty());
    bus.answer("GetCapabilities", [this](sd_bus_message* call) { replyNames(serviceOwner, call, capabilities); });
    ASSERT_TRUE(isTold(1));
    EXPECT_EQ(questionCount(), 2);
}

TEST_F(BusPopupServiceTest, TellsLateOnesThatAreClickable)
{
    static_assert(BusPopupService::lateLimit > 10 * 60 * 1000, "services sleep longer than that");
    bus.answer("Notify", [this](sd_bus_message* call) { bus.keep(call); });
    post(1, true);
    post(2, false);
    ASSERT_TRUE(isTold(2));
    EXPECT_THAT(told, testing::ElementsAre("not shown 1", "not shown 2"));
    replyId(serviceOwner, bus.kept()[0].get(), 8);
    replyId(serviceOwner, bus.kept()[1].get(), 9);
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_THAT(told, testing::ElementsAre("not shown 1", "not shown 2", "shown 1 8"));
    EXPECT_EQ(connection.callsUnderWay(), 0);
}

TEST_F(BusPopupServiceTest, BelievesNoReplyOfAStrangerAndNoIdThatIsNone)
{
    bus.answer("Notify", [](sd_bus_message* call) { replyId(stranger, call, 3); });
    post(1);
    ASSERT_TRUE(isTold(1));
    bus.answer("Notify", [](sd_bus_message* call) { replyId(serviceOwner, call, 0); });
    post(2);
    ASSERT_TRUE(isTold(2));
    bus.answer("Notify",
               [](sd_bus_message* call) { replyId(serviceOwner, call, std::numeric_limits<std::uint32_t>::max()); });
    post(3);
    ASSERT_TRUE(isTold(3));
    EXPECT_THAT(told, testing::ElementsAre("not shown 1", "not shown 2", "shown 3 4294967295"));
    notifications.close(4294967295U);
    invoke(serviceOwner, std::numeric_limits<std::uint32_t>::max());
    ASSERT_TRUE(isTold(4));
    EXPECT_EQ(told.back(), "clicked 4294967295");
    EXPECT_EQ(bus.callsOf("CloseNotification").size(), 1);
}

TEST_F(BusPopupServiceTest, BelievesNobodyWhileTheServiceIsBeingStarted)
{
    bus.answer("GetNameOwner", ScriptedBus::refuse);
    bus.answer("GetCapabilities", [this](sd_bus_message* call) {
        replyNames(stranger, call, {"body-markup", "actions"});
        bus.keep(call);
    });
    bus.answer("Notify", [this](sd_bus_message* call) {
        replyId(stranger, call, 5);
        replyId(serviceOwner, call, 6);
    });
    post(1, true);
    ASSERT_TRUE(runUntil([&] { return !bus.kept().empty(); }));
    invoke(stranger, 5);
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(bus.callsOf("Notify").isEmpty()) << "a stranger said what the service can do";
    changeOwner("", serviceOwner);
    replyNames(serviceOwner, bus.kept()[0].get(), {"actions"});
    ASSERT_TRUE(isTold(1));
    invoke(stranger, 6);
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_THAT(told, testing::ElementsAre("shown 1 6"));
    EXPECT_EQ(questionCount(), 1) << "the question that started it was its to answer";
}

TEST_F(BusPopupServiceTest, TakesNoIdOfAnEarlierOwner)
{
    bus.answer("Notify", [this](sd_bus_message* call) { bus.keep(call); });
    post(1, true);
    ASSERT_TRUE(runUntil([&] { return !bus.kept().empty(); }));
    changeOwner(serviceOwner, stranger);
    replyId(serviceOwner, bus.kept()[0].get(), 1);
    ASSERT_TRUE(isTold(1));
    EXPECT_THAT(told, testing::ElementsAre("not shown 1"));
}

TEST_F(BusPopupServiceTest, ShowsPopupsOfAServiceThatRefusesToSayWhatItCanDo)
{
    bus.answer("GetCapabilities", ScriptedBus::refuse);
    post(1);
    ASSERT_TRUE(isTold(1));
    EXPECT_THAT(told, testing::ElementsAre("shown 1 1"));
    // It is asked again beside the next one, which does not wait for that.
    bus.answer("GetCapabilities", [this](sd_bus_message* call) { bus.keep(call); });
    post(2);
    ASSERT_TRUE(isTold(2));
    ASSERT_TRUE(runUntil([&] { return !bus.kept().empty(); }));
}

TEST_F(BusPopupServiceTest, LearnsWhatAServiceCanDoByNow)
{
    constexpr int atOnce = 0;
    NotificationService service(connection, atOnce);
    std::vector<bool> hasActions;
    bus.answer("Notify", [&](sd_bus_message* call) {
        sd_bus_message_skip(call, "susss");
        sd_bus_message_enter_container(call, 'a', "s");
        hasActions.push_back(sd_bus_message_at_end(call, 0) == 0);
        replyId(serviceOwner, call, ++lastId);
    });
    connection.open();
    ASSERT_TRUE(runUntil([&] { return questionCount() == 2; })) << "the fixture's asks, too";
    service.post(posting({}, true), 1);
    ASSERT_TRUE(runUntil([&] { return hasActions.size() == 1; }));
    capabilities.clear();
    const qsizetype asked = questionCount();
    service.post(posting({}, true), 2);
    ASSERT_TRUE(runUntil([&] { return questionCount() > asked; }));
    ASSERT_TRUE(roundTrip(connection));
    service.post(posting({}, true), 3);
    ASSERT_TRUE(runUntil([&] { return hasActions.size() == 3; }));
    EXPECT_THAT(hasActions, testing::ElementsAre(true, true, false));
}

TEST_F(BusPopupServiceTest, AsksOnceWhileTheAnswerIsYoung)
{
    for (quint64 ticket = 1; ticket <= 100; ++ticket) {
        post(ticket);
        ASSERT_TRUE(isTold(ticket));
    }
    EXPECT_EQ(questionCount(), 1);
}

TEST_F(BusPopupServiceTest, HearsClicksOnceTheBusGrantsWhatItRefused)
{
    bus.answer("AddMatch", ScriptedBus::refuse);
    bus.answer("GetNameOwner", ScriptedBus::refuse);
    post(1);
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("AddMatch").size() >= 4; }));
    ASSERT_TRUE(roundTrip(connection));
    const qsizetype refused = bus.callsOf("AddMatch").size();
    bus.answer("AddMatch", ScriptedBus::grant);
    bus.answer("GetNameOwner", [](sd_bus_message* call) { ScriptedBus::replyFrom(busItself, call, serviceOwner); });
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("AddMatch").size() >= 2 * refused; }));
    ASSERT_TRUE(runUntil([&] { return notifications.state() == ZepaPopupService::There; }));
    post(2);
    ASSERT_TRUE(runUntil([&] { return !told.empty() && told.back().rfind("shown 2", 0) == 0; }));
    invoke(serviceOwner, 1);
    ASSERT_TRUE(runUntil([&] { return told.back() == "clicked 1"; }));
}

TEST_F(BusPopupServiceTest, KnowsNoServiceWhereTheBusRefusesToListThoseThatItCanStart)
{
    bus.answer("GetNameOwner", ScriptedBus::refuse);
    bus.answer("ListActivatableNames", ScriptedBus::refuse);
    EXPECT_EQ(notifications.state(), ZepaPopupService::NotKnownYet);
    ASSERT_TRUE(runUntil([&] { return notifications.state() == ZepaPopupService::None; }));
}
