// SPDX-License-Identifier: Apache-2.0
#include "client/cli/exit_code.h"
#include "client/client.h"
#include "client/instance/bus_name.h"
#include "client/instance/remote_client.h"
#include "client/instance/remote_command.h"
#include "tests/platform/bus_daemon.h"
#include "tests/platform/connection_fixture.h"
#include "tests/platform/scripted_bus.h"

#include <csignal>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;
using bus::MessageReader;

constexpr const char* clientName = "zepa.Client.Folder_test";
constexpr const char* runningClient = ":1.5";
constexpr const char* stranger = ":1.66";
constexpr unsigned int jobNumber = 7;

/// Keeps what is said.
class Heard final : public cli::OutputSink
{
public:
    void write(cli::Stream stream, const QByteArray& text) override
    {
        (stream == cli::Stream::Output ? output : errors) += text;
    }

    QByteArray output;
    QByteArray errors;
};

/// The calling side against a bus on which anybody says anything.
class HostilePeerTest : public ConnectionTest
{
protected:
    HostilePeerTest() : m_bus(socketPath())
    {
        m_bus.answer("GetNameOwner", [this](sd_bus_message* call) {
            if (m_isGone && m_bus.callsOf("GetNameOwner").constLast() == QLatin1StringView(runningClient))
                return ScriptedBus::refuse(call);
            ScriptedBus::replyFrom("org.freedesktop.DBus", call, runningClient);
        });
    }

    static void replyWithNumber(const char* sender, sd_bus_message* call, unsigned int number)
    {
        sd_bus_message* reply = nullptr;
        ASSERT_GE(sd_bus_message_new_method_return(call, &reply), 0);
        sd_bus_message_set_sender(reply, sender);
        sd_bus_message_append(reply, "u", number);
        sd_bus_send(sd_bus_message_get_bus(call), reply, nullptr);
        sd_bus_message_unref(reply);
    }
    void say(const char* sender, const char* text, unsigned int job = jobNumber)
    {
        m_bus.signalFrom(sender, instance::objectPath, instance::interfaceName, "Output", "ubs", job, 0, text);
    }
    void finish(const char* sender, int code, unsigned int job = jobNumber)
    {
        m_bus.signalFrom(sender, instance::objectPath, instance::interfaceName, "Finished", "ui", job, code);
    }

    std::optional<int> handOver()
    {
        EXPECT_TRUE(instance::openBus(connection));
        const cli::OutputTo here(&m_heard);
        return instance::RemoteClient(connection, clientName).handOver({u"types"_s}, u"/"_s, {});
    }

    ScriptedBus m_bus;
    Heard m_heard;
    bool m_isGone = false;
};

TEST_F(HostilePeerTest, IsNotBelievedWhenItAnswersInTheClientsPlace)
{
    m_bus.answer("Run", [this](sd_bus_message* call) {
        replyWithNumber(stranger, call, 1);
        replyWithNumber(runningClient, call, jobNumber);
        finish(runningClient, 3);
    });
    EXPECT_EQ(handOver(), 3);
}

TEST_F(HostilePeerTest, IsNotBelievedWhenItSpeaksInTheClientsPlace)
{
    m_bus.answer("Run", [this](sd_bus_message* call) {
        // Before the answer names the client, and after.
        say(stranger, "forged\n");
        finish(stranger, 0);
        replyWithNumber(runningClient, call, jobNumber);
        say(stranger, "forged\n");
        finish(stranger, 0);
        say(runningClient, "of another job\n", jobNumber + 1);
        finish(runningClient, 0, jobNumber + 1);
        say(runningClient, "true\n");
        finish(runningClient, 4);
    });
    EXPECT_EQ(handOver(), 4);
    EXPECT_EQ(m_heard.output, "true\n");
}

TEST_F(HostilePeerTest, DoesNotEndTheWaitingByForgedNewsOfTheBus)
{
    const char* busItself = "org.freedesktop.DBus";
    const char* busPath = "/org/freedesktop/DBus";
    m_bus.answer("Run", [&, this](sd_bus_message* call) {
        replyWithNumber(runningClient, call, jobNumber);
        m_bus.signalFrom(stranger, busPath, busItself, "NameOwnerChanged", "sss", runningClient, runningClient, "");
        m_bus.signalFrom(stranger, busPath, busItself, "NameOwnerChanged", "sss", clientName, runningClient, stranger);
        say(runningClient, "true\n");
        finish(runningClient, 0);
    });
    EXPECT_EQ(handOver(), 0);
    EXPECT_EQ(m_heard.output, "true\n");
}

TEST_F(HostilePeerTest, SaysThatTheClientIsGoneWhenTheBusSaysSo)
{
    m_isGone = true;
    m_bus.answer("Run", [this](sd_bus_message* call) { replyWithNumber(runningClient, call, jobNumber); });
    EXPECT_EQ(handOver(), cli::Failure);
    EXPECT_TRUE(m_heard.errors.contains("the running Zepa quit before")) << m_heard.errors.constData();
}

/// A command of another program, whose output has to pass a real bus.
class RemoteOutputTest : public ConnectionTest
{
protected:
    void SetUp() override
    {
        if (!m_daemon.start())
            GTEST_SKIP() << "dbus-daemon is not installed";
        setAddress(m_daemon.address());
        ASSERT_TRUE(opens());
        ASSERT_TRUE(opens(m_caller));
    }

    BusDaemon m_daemon;
    Connection m_caller;
};

TEST_F(RemoteOutputTest, LosesNoLineThatHasNoRoomOnItsWayAndEndsAfterTheLast)
{
    constexpr int count = 30000; // more than the socket takes, and than may wait for it
    QList<QString> lines;
    std::optional<int> code;
    bus::SignalMatch match;
    match.interface = instance::interfaceName;
    match.isDirected = true;
    const bus::Registration registration = m_caller.subscribe(match, [&](const Message& signal) {
        MessageReader reader(signal);
        unsigned int job = 0;
        bool isError = false;
        QString text;
        int result = 0;
        if (signal.member() == QLatin1StringView("Output") && reader.read(job, isError, text))
            lines.append(text);
        else if (reader.read(job, result))
            code = result;
    });

    Client client(m_folder.filePath(u"settings"_s), Client::Start::Later);
    Heard help;
    std::unique_ptr<cli::CommandLine> line;
    {
        const cli::OutputTo here(&help);
        line = std::make_unique<cli::CommandLine>(QStringList{u"--version"_s});
    }
    ASSERT_FALSE(line->command());
    auto* command = new instance::RemoteCommand(connection, jobNumber, m_caller.uniqueName(), std::move(line), {});
    for (int i = 0; i < count; ++i)
        command->sayFirst(cli::Stream::Output, QByteArray::number(i).leftJustified(1000));
    command->sayFirst(cli::Stream::Output, QByteArray("a\0b", 3));
    int ended = 0;
    QObject::connect(command, &instance::RemoteCommand::ended, &connection, [&] { ++ended; });
    // The bus reads nothing meanwhile.
    std::optional<bus::Credentials> daemon;
    connection.credentials("org.freedesktop.DBus", &connection, [&](const auto& told) { daemon = told; });
    ASSERT_TRUE(runUntil([&] { return daemon && daemon->processId; }));
    const auto process = static_cast<pid_t>(*daemon->processId);
    ASSERT_EQ(::kill(process, SIGSTOP), 0);
    command->start(client);
    ::kill(process, SIGCONT);
    EXPECT_TRUE(runUntil([&] { return code.has_value(); }));
    EXPECT_EQ(code, cli::Success);
    ASSERT_EQ(lines.size(), count + 1);
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(lines[i].trimmed().toInt(), i);
    EXPECT_EQ(lines.constLast(), u"a\ufffdb"_s);
    EXPECT_EQ(ended, 1);
}

} // namespace
