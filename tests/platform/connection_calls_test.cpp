// SPDX-License-Identifier: Apache-2.0
#include "connection_fixture.h"
#include "scripted_bus.h"

#include <QStringList>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* service = "test.Service";
constexpr const char* ownerName = ":1.42";

class CallsTest : public ConnectionTest
{
protected:
    CallsTest() : bus(socketPath())
    {
        bus.answer("GetNameOwner",
                   [this](sd_bus_message* call) { ScriptedBus::replyFrom("org.freedesktop.DBus", call, owner); });
        bus.answer("Work", [this](sd_bus_message* call) { bus.keep(call); });
    }

    Message newWork(const char* destination = service) { return connection.newCall(destination, "/a", "a.b", "Work"); }
    void work(const char* destination = service, zepa::bus::CallOptions options = {})
    {
        connection.call(
            newWork(destination), &connection, [this](const Message& reply) { note(reply); }, options);
    }
    void note(const Message& reply)
    {
        QString text;
        zepa::bus::MessageReader(reply).read(text);
        answers.append(reply.isError() ? QString(reply.errorName()).section(u'.', -1) : text);
    }
    bool arrived(std::size_t count)
    {
        return runUntil([&] { return bus.kept().size() == count; });
    }

    ScriptedBus bus;
    const char* owner = ownerName;
    QStringList answers;
};

} // namespace

TEST_F(CallsTest, GetTheirReplies)
{
    ASSERT_TRUE(opens());
    work();
    work(":1.5");
    EXPECT_EQ(connection.callsUnderWay(), 2);
    ASSERT_TRUE(arrived(2));
    ScriptedBus::replyFrom(":1.5", bus.kept()[1].get(), "second");
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "first");
    ASSERT_TRUE(runUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (QStringList{u"second"_s, u"first"_s}));
    EXPECT_EQ(connection.callsUnderWay(), 0);
}

TEST_F(CallsTest, BelieveOnlyWhomTheyAsked)
{
    ASSERT_TRUE(opens());
    work();
    work(":1.5");
    connection.call(connection.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "Work"), &connection,
                    [this](const Message& reply) { note(reply); });
    ASSERT_TRUE(arrived(3));
    for (const auto& call : bus.kept()) {
        ScriptedBus::replyFrom(":1.66", call.get(), "forged");
        ScriptedBus::replyFrom(service, call.get(), "forged");
    }
    // In the name of the bus only the bus can speak, and it does nobody's work.
    ScriptedBus::replyFrom("org.freedesktop.DBus", bus.kept()[0].get(), "strange");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(answers, QStringList());
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "owner");
    ScriptedBus::replyFrom(":1.5", bus.kept()[1].get(), "unique");
    ScriptedBus::replyFrom("org.freedesktop.DBus", bus.kept()[2].get(), "bus");
    ASSERT_TRUE(runUntil([&] { return answers.size() == 3; }));
    EXPECT_EQ(answers, (QStringList{u"owner"_s, u"unique"_s, u"bus"_s}));
}

TEST_F(CallsTest, BelieveAServiceThatWasStartedForThem)
{
    owner = "";
    bus.answer("GetNameOwner", ScriptedBus::refuse);
    ASSERT_TRUE(opens());
    work();
    ASSERT_TRUE(arrived(1));
    ScriptedBus::replyFrom(":1.66", bus.kept()[0].get(), "forged while it starts");
    bus.signalFrom("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged", "sss",
                   service, "", ":1.8");
    ScriptedBus::replyFrom(":1.8", bus.kept()[0].get(), "true");
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers, QStringList{u"true"_s});
}

TEST_F(CallsTest, EndWithTheErrorOfTheBus)
{
    ASSERT_TRUE(opens());
    work();
    ASSERT_TRUE(arrived(1));
    ScriptedBus::refuse(bus.kept()[0].get());
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers, QStringList{u"AccessDenied"_s});
}

TEST_F(CallsTest, AreFewerUnderWayWhereTheBusTakesFewer)
{
    ASSERT_TRUE(opens());
    for (int i = 0; i < 5; ++i)
        work();
    ASSERT_TRUE(arrived(5));
    EXPECT_TRUE(connection.canCall());
    for (std::size_t i = 3; i < 5; ++i)
        ScriptedBus::refuseForLimits(bus.kept()[i].get());
    ASSERT_TRUE(runUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (QStringList{u"LimitsExceeded"_s, u"LimitsExceeded"_s}));
    EXPECT_EQ(connection.callsUnderWay(), 3);
    EXPECT_FALSE(connection.canCall());
    // A reply makes room for one.
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "a");
    ASSERT_TRUE(runUntil([&] { return connection.canCall(); }));
    work();
    EXPECT_FALSE(connection.canCall());
    // And it is tried, one by one, whether the bus takes more by now.
    int roomCount = 0;
    QObject::connect(&connection, &Connection::roomForCalls, &connection, [&] { ++roomCount; });
    ASSERT_TRUE(runUntil([&] { return connection.canCall(); }));
    EXPECT_EQ(roomCount, 1);
    work();
    EXPECT_EQ(connection.callsUnderWay(), 4);
    EXPECT_FALSE(connection.canCall());
}

TEST_F(CallsTest, AreNotFewerBecauseAServiceOrTheBusForItselfHasALimit)
{
    ASSERT_TRUE(opens());
    work();
    work(":1.5");
    connection.call(connection.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "Work"), &connection,
                    [this](const Message& reply) { note(reply); });
    ASSERT_TRUE(arrived(3));
    ScriptedBus::refuseForLimits(bus.kept()[2].get());
    ScriptedBus::replyError(bus.kept()[1].get(), "org.freedesktop.DBus.Error.LimitsExceeded", ":1.5");
    ASSERT_TRUE(runUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (QStringList{u"LimitsExceeded"_s, u"LimitsExceeded"_s}));
    EXPECT_TRUE(connection.canCall());
}

TEST_F(CallsTest, AreAsManyAsEverOnANewConnection)
{
    ASSERT_TRUE(opens());
    work();
    ASSERT_TRUE(arrived(1));
    ScriptedBus::refuseForLimits(bus.kept()[0].get());
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_FALSE(connection.canCall());
    connection.close();
    ASSERT_TRUE(opens());
    EXPECT_TRUE(connection.canCall());
}

TEST_F(CallsTest, EndByTheirLimitAndCountUntilTheirReplyComes)
{
    ASSERT_TRUE(opens());
    work(service, {.limit = 1});
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers, QStringList{u"NoReply"_s});
    EXPECT_EQ(connection.callsUnderWay(), 1);
    ASSERT_TRUE(arrived(1));
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "late");
    ASSERT_TRUE(runUntil([&] { return connection.callsUnderWay() == 0; }));
    EXPECT_EQ(answers.size(), 1);
}

TEST_F(CallsTest, HandLateRepliesToWhoWantsThem)
{
    ASSERT_TRUE(opens());
    QStringList late;
    const auto noteLate = [&](const Message& reply) {
        QString text;
        zepa::bus::MessageReader(reply).read(text);
        late.append(text);
    };
    work(service, {.limit = 1, .late = noteLate});
    work(service, {.limit = 1, .late = noteLate, .lateLimit = 2});
    work(service, {.limit = 1, .late = noteLate});
    ASSERT_TRUE(runUntil([&] { return answers.size() == 3; }));
    ASSERT_TRUE(arrived(3));
    QTimer lateEnough;
    lateEnough.setSingleShot(true);
    lateEnough.start(20);
    ASSERT_TRUE(runUntil([&] { return !lateEnough.isActive(); }));
    ScriptedBus::refuse(bus.kept()[2].get());
    ScriptedBus::replyFrom(ownerName, bus.kept()[1].get(), "too late");
    ScriptedBus::replyFrom(":1.66", bus.kept()[0].get(), "forged");
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "late");
    ASSERT_TRUE(runUntil([&] { return connection.callsUnderWay() == 0; }));
    EXPECT_EQ(late, QStringList{u"late"_s});
}

TEST_F(CallsTest, AreLimitedAndThereIsRoomAgainWhenTheBusIsRidOfThem)
{
    ASSERT_TRUE(opens());
    int roomCount = 0;
    QObject::connect(&connection, &Connection::roomForCalls, &connection, [&] { ++roomCount; });
    while (connection.canCall())
        work(service, {.limit = 1});
    EXPECT_EQ(connection.callsUnderWay(), Connection::callLimit);
    while (connection.callsUnderWay() < Connection::hardCallLimit)
        work(service, {.limit = 1});
    work(service, {.limit = 600000});
    EXPECT_TRUE(answers.isEmpty()) << "told from inside call()";
    ASSERT_TRUE(runUntil([&] { return answers.size() == Connection::hardCallLimit + 1; }));
    EXPECT_EQ(answers.count(u"LimitsExceeded"_s), 1);
    EXPECT_FALSE(connection.canCall()) << "they are still on the list of the bus";
    EXPECT_TRUE(roundTrip(connection)) << "questions to the bus are not counted";
    EXPECT_EQ(roomCount, 0);
    ASSERT_TRUE(arrived(Connection::hardCallLimit));
    for (const auto& call : bus.kept())
        ScriptedBus::refuse(call.get());
    ASSERT_TRUE(runUntil([&] { return connection.callsUnderWay() == 0; }));
    EXPECT_EQ(roomCount, 1);
    EXPECT_TRUE(connection.canCall());
}

TEST_F(CallsTest, EndWhenTheBusGoesAndAreNotMadeWithoutOne)
{
    ASSERT_TRUE(opens());
    work();
    work();
    ASSERT_TRUE(arrived(2));
    bool wereEnded = false;
    QObject::connect(&connection, &Connection::closed, &connection, [&] { wereEnded = answers.size() == 2; });
    bus.kept().clear();
    bus.dropClients();
    ASSERT_TRUE(runUntil([&] { return closedCount == 1; }));
    EXPECT_TRUE(wereEnded);
    EXPECT_EQ(connection.callsUnderWay(), 0);
    ASSERT_TRUE(runUntil([&] { return openedCount == 2; }));
    connection.close();
    work();
    EXPECT_EQ(answers.size(), 2);
    ASSERT_TRUE(runUntil([&] { return answers.size() == 3; }));
    EXPECT_EQ(answers.count(u"Disconnected"_s), 3);
}

TEST_F(CallsTest, TellNobodyWhoIsGone)
{
    ASSERT_TRUE(opens());
    auto context = std::make_unique<QObject>();
    connection.call(newWork(), context.get(), [this](const Message& reply) { note(reply); });
    ASSERT_TRUE(arrived(1));
    context.reset();
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "nobody listens");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(answers.isEmpty());
    EXPECT_EQ(connection.callsUnderWay(), 0);
}

TEST_F(CallsTest, AreNotMadeWithWhatIsNoText)
{
    ASSERT_TRUE(opens());
    Message message = newWork();
    message.append(QStringView(u"a\0b", 3));
    EXPECT_FALSE(message.isSound());
    connection.call(message, &connection, [this](const Message& reply) { note(reply); });
    EXPECT_FALSE(connection.send(message));
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers, QStringList{u"InvalidArgs"_s});
}

TEST_F(CallsTest, MayHandleEventsInTheirReplies)
{
    ASSERT_TRUE(opens());
    connection.call(newWork(), &connection, [this](const Message&) {
        // What arrives meanwhile reaches whom it is for.
        work();
        EXPECT_TRUE(arrived(2));
        ScriptedBus::replyFrom(ownerName, bus.kept()[1].get(), "inner");
        EXPECT_TRUE(runUntil([&] { return answers.size() == 1; }));
        answers.append(u"outer"_s);
    });
    ASSERT_TRUE(arrived(1));
    ScriptedBus::replyFrom(ownerName, bus.kept()[0].get(), "");
    ASSERT_TRUE(runUntil([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers, (QStringList{u"inner"_s, u"outer"_s}));
}

TEST_F(CallsTest, MayDestroyTheConnectionInTheirReplies)
{
    auto other = std::make_unique<Connection>();
    ASSERT_TRUE(opens(*other));
    bool isOver = false;
    other->call(other->newCall(":1.5", "/a", "a.b", "Work"), nullptr, [&](const Message&) {
        other.reset();
        isOver = true;
    });
    ASSERT_TRUE(arrived(1));
    ScriptedBus::replyFrom(":1.5", bus.kept()[0].get());
    EXPECT_TRUE(runUntil([&] { return isOver; }));
}

TEST_F(CallsTest, OfAStuckBusAreBoundedInBytes)
{
    ASSERT_TRUE(opens());
    bus.stopReading();
    const QByteArray picture(65536, 'p');
    std::size_t sent = 0;
    constexpr std::size_t most = 1000;
    while (sent < most && connection.send(newWork().append(picture)))
        ++sent;
    EXPECT_LT(sent, most) << "nothing was refused";
    EXPECT_GE(sent * 65536, Connection::byteLimit);
    EXPECT_FALSE(connection.canCall());
    work();
    ASSERT_TRUE(runUntil([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers, QStringList{u"LimitsExceeded"_s});
}

TEST_F(CallsTest, LeaveTheQueueWhenTheBusReads)
{
    ASSERT_TRUE(opens());
    bool hadRoom = false;
    QObject::connect(&connection, &Connection::roomForCalls, &connection, [&] { hadRoom = true; });
    const QByteArray picture(65536, 'p');
    int sent = 0;
    while (connection.canCall()) {
        ASSERT_TRUE(connection.send(newWork().append(picture)));
        ++sent;
    }
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("Work").size() == sent; }));
    EXPECT_TRUE(hadRoom);
    EXPECT_TRUE(connection.canCall());
}
