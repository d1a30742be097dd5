// SPDX-License-Identifier: Apache-2.0
#include "bus/address.h"
#include "bus/paced_handshake.h"
#include "connection_fixture.h"
#include "fake_bus.h"

#include <QDir>

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using zepa::bus::PacedHandshake;
using Handshake = PacedHandshake::State;

const QByteArray authentication("\0AUTH EXTERNAL\r\n", 16);
const QByteArray files("NEGOTIATE_UNIX_FD\r\n");
const QByteArray begin("BEGIN\r\n");
const QByteArray allCommands = authentication + "DATA\r\n" + files + begin;

void say(int socket, const QByteArray& text)
{
    EXPECT_EQ(send(socket, text.constData(), static_cast<std::size_t>(text.size()), MSG_NOSIGNAL), text.size());
}

QByteArray heardFrom(int socket)
{
    std::array<char, 4096> bytes = {};
    const ssize_t count = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    return {bytes.data(), std::max<ssize_t>(count, 0)};
}

/// The test is both sides: the client that says all at once, and the bus.
class HandshakeTest : public testing::Test
{
protected:
    HandshakeTest()
    {
        std::array<int, 2> sockets = {-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()), 0);
        bus = sockets[0];
        handshake = std::make_unique<PacedHandshake>(sockets[1]);
        client = handshake->takeClientSocket();
    }
    ~HandshakeTest() override
    {
        for (const int socket : {bus, client}) {
            if (socket >= 0)
                close(socket);
        }
    }
    Q_DISABLE_COPY_MOVE(HandshakeTest)

    /// What the other side hears when this one has said something.
    QByteArray passes(int from, const QByteArray& text, int to)
    {
        say(from, text);
        EXPECT_EQ(handshake->advance(), Handshake::UnderWay);
        return heardFrom(to);
    }
    void answerAll()
    {
        EXPECT_EQ(passes(client, allCommands, bus), authentication);
        EXPECT_EQ(passes(bus, "DATA\r\n", bus), "DATA\r\n");
        EXPECT_EQ(passes(bus, "OK 1234\r\n", bus), files);
        EXPECT_EQ(passes(bus, "AGREE_UNIX_FD\r\n", bus), begin);
    }

    int bus = -1;
    int client = -1;
    std::unique_ptr<PacedHandshake> handshake;
};

class SlowBusTest : public ConnectionTest, public testing::WithParamInterface<int>
{};

qsizetype openDescriptors()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

} // namespace

TEST_F(HandshakeTest, PassesACommandOnWhenTheOneBeforeHasBeenAnswered)
{
    EXPECT_EQ(passes(client, allCommands.left(5), bus), "");
    EXPECT_EQ(passes(client, allCommands.mid(5), bus), authentication);
    EXPECT_EQ(handshake->advance(), Handshake::UnderWay);
    EXPECT_EQ(heardFrom(bus), "");
    EXPECT_EQ(passes(bus, "DA", client), "");
    EXPECT_EQ(passes(bus, "TA\r", client), "");
    EXPECT_EQ(heardFrom(bus), "");
    EXPECT_EQ(passes(bus, "\n", client), "DATA\r\n");
    EXPECT_EQ(heardFrom(bus), "DATA\r\n");
    EXPECT_EQ(passes(bus, "OK 1234\r\n", client), "OK 1234\r\n");
    EXPECT_EQ(heardFrom(bus), files);
    EXPECT_EQ(passes(bus, "AGREE_UNIX_FD\r\n", client), "AGREE_UNIX_FD\r\n");
    EXPECT_EQ(heardFrom(bus), begin);
    EXPECT_EQ(handshake->awaitedSockets()[1], -1) << "what the bus says now is for the client alone";
}

TEST_F(HandshakeTest, IsOverWithTheFirstMessageAndThenNothingIsInBetween)
{
    answerAll();
    say(client, "message");
    EXPECT_EQ(handshake->advance(), Handshake::Over);
    EXPECT_EQ(heardFrom(bus), "message");
    EXPECT_TRUE(handshake->connectDirectly(client));
    handshake.reset();
    say(client, "another");
    EXPECT_EQ(heardFrom(bus), "another");
    say(bus, "answer");
    EXPECT_EQ(heardFrom(client), "answer");
    close(std::exchange(client, -1));
    char byte = 0;
    EXPECT_EQ(recv(bus, &byte, 1, MSG_DONTWAIT), 0) << "somebody holds another copy of the socket";
}

TEST_F(HandshakeTest, FailsWhenTheBusHangsUp)
{
    EXPECT_EQ(passes(client, allCommands, bus), authentication);
    close(std::exchange(bus, -1));
    EXPECT_EQ(handshake->advance(), Handshake::Failed);
    EXPECT_EQ(handshake->advance(), Handshake::Failed);
}

TEST_F(HandshakeTest, FailsWhenTheClientHangsUp)
{
    close(std::exchange(client, -1));
    EXPECT_EQ(handshake->advance(), Handshake::Failed);
}

TEST_F(HandshakeTest, FailsOnAnAnswerWithoutEnd)
{
    EXPECT_EQ(passes(client, allCommands, bus), authentication);
    EXPECT_EQ(passes(bus, QByteArray(16384, 'a'), client), "");
    say(bus, "a");
    EXPECT_EQ(handshake->advance(), Handshake::Failed);
}

TEST_F(HandshakeTest, FailsWhenTheBusSaysMoreThanItWasAsked)
{
    EXPECT_EQ(passes(client, allCommands, bus), authentication);
    say(bus, "DATA\r\nOK 1234\r\nAGREE_UNIX_FD\r\nl");
    EXPECT_EQ(handshake->advance(), Handshake::Failed);
}

TEST(BusAddresses, NameSocketsByPathOrWithoutAFile)
{
    using zepa::bus::socketNameOf;
    EXPECT_EQ(socketNameOf("unix:path=/a%20b,guid=12"), "/a b");
    EXPECT_EQ(socketNameOf("unix:abstract=/a"), QByteArray("\0/a", 3));
    for (const char* broken : {"unix:", "unix:path=/a,abstract=b", "unix:path=/a%0", "unix:path=/a%00b", "tcp:path=/a"})
        EXPECT_EQ(socketNameOf(broken), "") << broken;
    EXPECT_EQ(PacedHandshake::connectTo(QByteArray(108, 'a')), nullptr) << "longer than a name can be";
    EXPECT_EQ(PacedHandshake::connectTo(""), nullptr);
}

TEST_P(SlowBusTest, HearsNoCommandBeforeItsTurnAndIsLeftWithoutATrace)
{
    const QList<QByteArray> answers{"DATA\r\n", "OK 0123456789abcdef0123456789abcdef\r\n", "AGREE_UNIX_FD\r\n"};
    const QList<QByteArray> commands{authentication, "DATA\r\n", files, begin};
    const QByteArray expected = commands.mid(0, GetParam() + 1).join();
    auto bus = std::make_unique<FakeBus>(socketPath(), FakeBus::Manner::Answers, answers.mid(0, GetParam()));
    const qsizetype before = openDescriptors();
    auto opening = std::make_unique<Connection>();
    opening->open();
    ASSERT_TRUE(runUntil([&] { return bus->heard().size() >= expected.size(); }));
    if (GetParam() < answers.size())
        EXPECT_EQ(bus->heard(), expected);
    else
        EXPECT_TRUE(runUntil([&] { return bus->heard().startsWith(expected) && bus->heard().contains("Hello"); }));
    opening.reset();
    EXPECT_TRUE(runUntil([&] { return bus->openCount() == 0; }));
    EXPECT_EQ(openDescriptors(), before + bus->connectionCount());
}

INSTANTIATE_TEST_SUITE_P(Answers, SlowBusTest, testing::Range(0, 4));

TEST_F(ConnectionTest, FindsABusWithoutAFile)
{
    const QByteArray name = "zepa-test" + socketPath();
    const FakeBus bus('\0' + name, FakeBus::Manner::Answers, {"DATA\r\n"});
    ASSERT_TRUE(bus.listens());
    setAddress("unix:abstract=" + name);
    connection.open();
    EXPECT_TRUE(runUntil([&] { return bus.heard() == authentication + "DATA\r\n"; }));
}
