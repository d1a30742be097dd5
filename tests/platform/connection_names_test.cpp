// SPDX-License-Identifier: Apache-2.0
#include "bus_daemon.h"
#include "connection_fixture.h"
#include "scripted_bus.h"

#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using zepa::bus::Credentials;
using zepa::bus::MessageReader;
using zepa::bus::NameResult;
using zepa::bus::Registration;
using zepa::bus::ServiceWatcher;

/// Two connections to a real bus.
class NamesTest : public ConnectionTest
{
protected:
    void SetUp() override
    {
        if (!daemon.start())
            GTEST_SKIP() << "no bus is installed";
        setAddress(daemon.address());
        ASSERT_TRUE(opens());
        ASSERT_TRUE(opens(other));
    }

    static NameResult request(Connection& asking, const QByteArray& name)
    {
        std::optional<NameResult> result;
        asking.requestName(name, &asking, [&](NameResult given) { result = given; });
        EXPECT_TRUE(runUntil([&] { return result.has_value(); }));
        return result.value_or(NameResult::Failed);
    }
    /// What `other` gets for a call of `path` on the first connection.
    Message ask(const char* path, const char* interface, const char* member)
    {
        Message answer;
        other.call(other.newCall(connection.uniqueName().constData(), path, interface, member), &other,
                   [&](const Message& reply) { answer = reply; });
        EXPECT_TRUE(runUntil([&] { return !answer.isNull(); }));
        return answer;
    }

    BusDaemon daemon;
    Connection other;
};

/// A watcher against a bus that is scripted.
class WatcherTest : public ConnectionTest
{
protected:
    WatcherTest() : bus(socketPath()), watcher(connection, "test.Service")
    {
        QObject::connect(&watcher, &ServiceWatcher::ownerChanged, &watcher,
                         [this](const QByteArray& oldOwner, const QByteArray& newOwner) {
                             changes.append(QString::fromLatin1(oldOwner + '>' + newOwner));
                         });
    }

    ScriptedBus bus;
    ServiceWatcher watcher;
    QStringList changes;
};

TEST_F(WatcherTest, CredentialsHaveTheProcessItselfAndItsLabelWhereTheBusTellsThem)
{
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    bus.answer("GetConnectionCredentials", [&](sd_bus_message* call) {
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        sd_bus_message_set_sender(reply, "org.freedesktop.DBus");
        sd_bus_message_append(reply, "a{sv}", 4, "ProcessFD", "h", pipe[1], "UnixUserID", "s", "of another type",
                              "LinuxSecurityLabel", "ay", 5, 's', 'n', 'a', 'p', '.', "ProcessID", "u", 42U);
        EXPECT_GE(sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr), 0);
        sd_bus_message_unref(reply);
    });
    ASSERT_TRUE(opens());
    std::optional<Credentials> credentials;
    connection.credentials(":1.5", &connection, [&](const auto& told) { credentials = told; });
    ASSERT_TRUE(runUntil([&] { return credentials.has_value(); }));
    EXPECT_FALSE(credentials->userId);
    EXPECT_EQ(credentials->processId, 42U);
    EXPECT_EQ(credentials->securityLabel, "snap.");
    ASSERT_TRUE(credentials->processDescriptor);
    // It is the same pipe, and stays open as long as a copy.
    ::close(pipe[1]);
    const auto copy = credentials->processDescriptor;
    credentials.reset();
    char byte = 'x';
    EXPECT_EQ(::write(*copy, &byte, 1), 1);
    EXPECT_EQ(::read(pipe[0], &byte, 1), 1);
    const int number = *copy;
    EXPECT_NE(::fcntl(number, F_GETFD) & FD_CLOEXEC, 0);
    ::close(pipe[0]);
}

} // namespace

TEST_F(NamesTest, BelongToOneAndAreFollowed)
{
    ServiceWatcher watcher(other, "test.Name");
    EXPECT_FALSE(watcher.isKnown());
    ASSERT_TRUE(runUntil([&] { return watcher.isKnown(); }));
    EXPECT_EQ(watcher.owner(), "");
    EXPECT_EQ(request(connection, "test.Name"), NameResult::Owned);
    EXPECT_EQ(request(connection, "test.Name"), NameResult::Owned);
    EXPECT_EQ(request(other, "test.Name"), NameResult::Taken);
    EXPECT_EQ(request(other, "no name"), NameResult::Failed);
    ASSERT_TRUE(runUntil([&] { return watcher.owner() == connection.uniqueName(); }));
    connection.releaseName("test.Name");
    ASSERT_TRUE(runUntil([&] { return watcher.owner().isEmpty(); }));
    EXPECT_EQ(request(other, "test.Name"), NameResult::Owned);
}

TEST_F(NamesTest, MayBeUniqueOnes)
{
    ServiceWatcher watcher(other, connection.uniqueName());
    ASSERT_TRUE(runUntil([&] { return watcher.owner() == connection.uniqueName(); }));
    connection.close();
    EXPECT_TRUE(runUntil([&] { return watcher.owner().isEmpty(); }));
    EXPECT_TRUE(watcher.isKnown());
}

TEST_F(NamesTest, TellWhoTheCallerIs)
{
    std::optional<Credentials> credentials;
    bool isBack = false;
    connection.credentials(other.uniqueName(), &connection, [&](const std::optional<Credentials>& told) {
        credentials = told;
        isBack = true;
    });
    ASSERT_TRUE(runUntil([&] { return isBack; }));
    ASSERT_TRUE(credentials);
    EXPECT_EQ(credentials->userId, getuid());
    EXPECT_EQ(credentials->processId, static_cast<std::uint32_t>(getpid()));
    isBack = false;
    connection.credentials(":1.12345", &connection, [&](const std::optional<Credentials>& told) {
        credentials = told;
        isBack = true;
    });
    ASSERT_TRUE(runUntil([&] { return isBack; }));
    EXPECT_FALSE(credentials);
}

TEST_F(NamesTest, LeadToObjectsThatAnswerAtOnceOrLater)
{
    Message kept;
    const Registration object =
        connection.exportObject("/zepa/Object", "<interface name=\"a.b\"/>", [&](const Message& call) {
            EXPECT_EQ(call.sender(), QLatin1StringView(other.uniqueName()));
            if (call.member() == QLatin1StringView("Later"))
                kept = call;
            else if (call.member() == QLatin1StringView("Now"))
                connection.send(connection.newReply(call).append("now"));
            else
                connection.send(connection.newError(call, "a.b.Error.Unknown", u"no \u00e9"_s));
        });
    QString text;
    EXPECT_TRUE(MessageReader(ask("/zepa/Object", "a.b", "Now")).read(text));
    EXPECT_EQ(text, u"now"_s);
    const Message refused = ask("/zepa/Object", "a.b", "Never");
    EXPECT_EQ(refused.errorName(), QLatin1StringView("a.b.Error.Unknown"));
    EXPECT_EQ(refused.errorText(), u"no \u00e9"_s);
    bool isBack = false;
    other.call(other.newCall(connection.uniqueName().constData(), "/zepa/Object", "a.b", "Later"), &other,
               [&](const Message& reply) { isBack = !reply.isError(); });
    ASSERT_TRUE(runUntil([&] { return !kept.isNull(); }));
    ASSERT_TRUE(roundTrip(other));
    EXPECT_FALSE(isBack);
    EXPECT_TRUE(connection.send(connection.newReply(kept)));
    EXPECT_TRUE(runUntil([&] { return isBack; }));
}

TEST_F(NamesTest, LeadToObjectsThatSayWhatTheyAre)
{
    Registration object = connection.exportObject("/zepa/Object", "<interface name=\"a.b\"/>", [](const Message&) {
        ADD_FAILURE() << "standard interfaces are not the object's business";
    });
    QString xml;
    ASSERT_TRUE(MessageReader(ask("/zepa/Object", "org.freedesktop.DBus.Introspectable", "Introspect")).read(xml));
    EXPECT_TRUE(xml.contains(u"<interface name=\"a.b\"/>"_s));
    ASSERT_TRUE(MessageReader(ask("/", "org.freedesktop.DBus.Introspectable", "Introspect")).read(xml));
    EXPECT_TRUE(xml.contains(u"<node name=\"zepa\"/>"_s));
    EXPECT_FALSE(ask("/zepa/Object", "org.freedesktop.DBus.Peer", "Ping").isError());
    EXPECT_TRUE(ask("/zepa/Object", "org.freedesktop.DBus.Properties", "Get").isError());
    EXPECT_EQ(ask("/nothing", "a.b", "C").errorName(), QLatin1StringView("org.freedesktop.DBus.Error.UnknownObject"));
    object.end();
    EXPECT_EQ(ask("/zepa/Object", "a.b", "C").errorName(),
              QLatin1StringView("org.freedesktop.DBus.Error.UnknownObject"));
}

TEST_F(NamesTest, GetSignalsOfTheirOwn)
{
    QStringList heard;
    const Registration match =
        other.subscribe({connection.uniqueName(), "/a", "a.b", {}, {}, true}, [&](const Message& signal) {
            QString text;
            MessageReader(signal).read(text);
            heard.append(text);
        });
    Connection third;
    ASSERT_TRUE(opens(third));
    EXPECT_TRUE(connection.send(
        connection.newSignal("/a", "a.b", "Said", third.uniqueName().constData()).append("to somebody else")));
    EXPECT_TRUE(
        connection.send(connection.newSignal("/a", "a.b", "Said", other.uniqueName().constData()).append("to you")));
    ASSERT_TRUE(runUntil([&] { return !heard.isEmpty(); }));
    EXPECT_EQ(heard, QStringList{u"to you"_s});
}

TEST_F(WatcherTest, TakesAnErrorForNobodyAndAsksAgain)
{
    int questions = 0;
    bus.answer("GetNameOwner", [&](sd_bus_message* call) {
        if (++questions == 1)
            ScriptedBus::refuse(call);
        else
            ScriptedBus::replyFrom("org.freedesktop.DBus", call, ":1.42");
    });
    ASSERT_TRUE(opens());
    ASSERT_TRUE(runUntil([&] { return watcher.isKnown(); }));
    EXPECT_EQ(watcher.owner(), "");
    EXPECT_TRUE(runUntil([&] { return watcher.owner() == ":1.42"; }));
}

TEST_F(WatcherTest, KnowsNothingWhenTheBusGoes)
{
    bus.answer("GetNameOwner",
               [](sd_bus_message* call) { ScriptedBus::replyFrom("org.freedesktop.DBus", call, ":1.42"); });
    ASSERT_TRUE(opens());
    ASSERT_TRUE(runUntil([&] { return watcher.isKnown(); }));
    bus.answer("Hello", [](sd_bus_message*) {});
    bus.dropClients();
    ASSERT_TRUE(runUntil([&] { return !watcher.isKnown(); }));
    EXPECT_EQ(changes, (QStringList{u">:1.42"_s, u":1.42>"_s}));
}

TEST_F(WatcherTest, LearnsWhetherTheBusCanStartOneAndAsksAgainAfterAnError)
{
    int questions = 0;
    bus.answer("ListActivatableNames", [&](sd_bus_message* call) {
        if (++questions == 1)
            return ScriptedBus::refuse(call);
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        sd_bus_message_set_sender(reply, "org.freedesktop.DBus");
        sd_bus_message_append(reply, "as", questions == 2 ? 2 : 1, "test.Other", "test.Service");
        sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
        sd_bus_message_unref(reply);
    });
    ASSERT_TRUE(opens());
    EXPECT_FALSE(watcher.isActivatable().has_value());
    ASSERT_TRUE(runUntil([&] { return watcher.isActivatable() == false; }));
    ASSERT_TRUE(runUntil([&] { return watcher.isActivatable() == true; }));
    bus.signalFrom(":1.66", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ActivatableServicesChanged", "");
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(questions, 2) << "not the bus said that";
    bus.signalFrom("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                   "ActivatableServicesChanged", "");
    EXPECT_TRUE(runUntil([&] { return watcher.isActivatable() == false; }));
}

TEST_F(WatcherTest, MayOutliveItsConnection)
{
    auto shortLived = std::make_unique<Connection>();
    ServiceWatcher survivor(*shortLived, "test.Service");
    ASSERT_TRUE(opens(*shortLived));
    shortLived.reset();
    EXPECT_FALSE(survivor.isKnown());
    EXPECT_FALSE(survivor.isActivatable().has_value());
}
