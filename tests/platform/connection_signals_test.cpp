// SPDX-License-Identifier: Apache-2.0
#include "connection_fixture.h"
#include "scripted_bus.h"

#include <QStringList>
#include <QTimer>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using zepa::bus::MessageReader;
using zepa::bus::Registration;
using zepa::bus::SignalMatch;

class SignalsTest : public ConnectionTest
{
protected:
    SignalsTest() : bus(socketPath())
    {
        bus.answer("GetNameOwner",
                   [](sd_bus_message* call) { ScriptedBus::replyFrom("org.freedesktop.DBus", call, ":1.42"); });
    }

    Registration subscribe(const SignalMatch& match)
    {
        return connection.subscribe(
            match,
            [this](const Message& signal) {
                QString text;
                MessageReader(signal).read(text);
                heard.append(text);
            },
            [this](const QString& error) { errors.append(error.section(u'.', -1)); });
    }
    void say(const char* sender, const char* text, const char* member = "Said")
    {
        bus.signalFrom(sender, "/a", "a.b", member, "s", text);
    }
    void changeOwner(const char* sender, const char* oldOwner, const char* newOwner)
    {
        bus.signalFrom(sender, "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged", "sss",
                       "test.Service", oldOwner, newOwner);
    }

    ScriptedBus bus;
    QStringList heard;
    QStringList errors;
};

const SignalMatch ofTheService{"test.Service", "/a", "a.b", "Said", {}};

} // namespace

TEST_F(SignalsTest, ComeFromWhomTheyAreWantedOnly)
{
    const Registration unique = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(opens());
    say(":1.66", "forged");
    say("", "nobody");
    say(":1.5", "other", "Sung");
    say(":1.5", "true");
    ASSERT_TRUE(runUntil([&] { return !heard.isEmpty(); }));
    EXPECT_EQ(heard, QStringList{u"true"_s});
    EXPECT_EQ(bus.callsOf("AddMatch"),
              QStringList{u"type='signal',sender=':1.5',path='/a',interface='a.b',member='Said'"_s});
}

TEST_F(SignalsTest, OfANameComeFromItsCurrentOwner)
{
    const Registration ofName = subscribe(ofTheService);
    ASSERT_TRUE(opens());
    ASSERT_TRUE(roundTrip(connection));
    changeOwner(":1.66", ":1.42", ":1.66");
    say(":1.66", "forged");
    say("test.Service", "forged");
    say(":1.42", "first");
    changeOwner("org.freedesktop.DBus", ":1.42", ":1.43");
    say(":1.42", "stale");
    say(":1.43", "second");
    changeOwner("org.freedesktop.DBus", ":1.43", "");
    say(":1.43", "gone");
    say("", "nobody");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(heard, (QStringList{u"first"_s, u"second"_s}));
}

TEST_F(SignalsTest, CanBeToldApartByTheirFirstArgument)
{
    const Registration some = subscribe({":1.5", {}, {}, {}, "it's"});
    ASSERT_TRUE(opens());
    say(":1.5", "its");
    bus.signalFrom(":1.5", "/a", "a.b", "Said", "u", 5U);
    say(":1.5", "it's");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(heard, QStringList{u"it's"_s});
    EXPECT_EQ(bus.callsOf("AddMatch"), QStringList{u"type='signal',sender=':1.5',arg0='it'\\''s'"_s});
}

TEST_F(SignalsTest, OfARefusedMatchAreAskedForAgainAndItIsSaid)
{
    int refusals = 0;
    bus.answer("AddMatch", [&](sd_bus_message* call) {
        if (++refusals <= 1)
            ScriptedBus::refuse(call);
        else
            ScriptedBus::grant(call);
    });
    const Registration match = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(opens());
    ASSERT_TRUE(runUntil([&] { return !errors.isEmpty(); }));
    EXPECT_EQ(errors, QStringList{u"AccessDenied"_s});
    EXPECT_TRUE(runUntil([&] { return bus.callsOf("AddMatch").size() == 2; }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(errors.size(), 1);
}

TEST_F(SignalsTest, EndWithTheirRegistrationAtTheBusToo)
{
    ASSERT_TRUE(opens());
    std::optional<Registration> match = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(roundTrip(connection));
    match.reset();
    say(":1.5", "too late");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(heard.isEmpty());
    EXPECT_EQ(bus.callsOf("RemoveMatch"), bus.callsOf("AddMatch"));
    // Before the bus has answered, it is not known yet whether there is something to take back.
    match = subscribe({":1.6", "/a", "a.b", "Said", {}});
    match.reset();
    ASSERT_TRUE(roundTrip(connection));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.callsOf("RemoveMatch"), bus.callsOf("AddMatch"));
    bus.answer("AddMatch", ScriptedBus::refuse);
    match = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(roundTrip(connection));
    match.reset();
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.callsOf("RemoveMatch").size(), 2) << "an equal match of somebody else would go";
}

TEST_F(SignalsTest, AreAskedForOnEachConnection)
{
    const Registration match = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(opens());
    ASSERT_TRUE(roundTrip(connection));
    bus.dropClients();
    ASSERT_TRUE(runUntil([&] { return openedCount == 2; }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.callsOf("AddMatch").size(), 2);
    say(":1.5", "again");
    EXPECT_TRUE(runUntil([&] { return !heard.isEmpty(); }));
}

TEST_F(SignalsTest, ToOneReceiverNeedNoMatch)
{
    const Registration match = subscribe({":1.5", "/a", "a.b", {}, {}, true});
    ASSERT_TRUE(opens());
    say(":1.5", "to you");
    ASSERT_TRUE(runUntil([&] { return !heard.isEmpty(); }));
    EXPECT_TRUE(bus.callsOf("AddMatch").isEmpty());
}

TEST_F(SignalsTest, MayOutliveTheConnection)
{
    std::optional<Registration> match;
    {
        Connection shortLived;
        ASSERT_TRUE(opens(shortLived));
        match = shortLived.subscribe(ofTheService, [](const Message&) {});
    }
    match.reset();
}

TEST_F(SignalsTest, InAFloodLeaveOthersTheirTurn)
{
    const Registration match = subscribe({":1.5", "/a", "a.b", "Said", {}});
    ASSERT_TRUE(opens());
    ASSERT_TRUE(roundTrip(connection));
    // Counted between two turns of a timer that is always due.
    qsizetype since = 0;
    qsizetype most = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, &turn, [&] {
        most = std::max(most, heard.size() - since);
        since = heard.size();
    });
    turn.start(0);
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr int flood = 10000; // at a tenth of the speed
#else
    constexpr int flood = 100000;
#endif
    for (int i = 0; i < flood; ++i)
        say(i % 2 == 0 ? ":1.5" : ":1.66", "flood");
    say(":1.5", "last");
    ASSERT_TRUE(runUntil([&] { return heard.size() == flood / 2 + 1; }));
    EXPECT_LE(most, 128);
    EXPECT_TRUE(roundTrip(connection));
}
