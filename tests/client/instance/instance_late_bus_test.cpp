// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"
#include "tests/platform/fake_bus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A client whose bus comes late, or comes again.
class LateBusTest : public InstanceTest
{
protected:
    /// The process that has the client's name; 0 for none. Asks anew: a connection of QtDBus does not live longer than
    /// its bus.
    qint64 owner()
    {
        const QString name = u"looking for the client"_s;
        const uint process = QDBusConnection::connectToBus(QString::fromUtf8(startedBusAddress()), name)
                                 .interface()
                                 ->servicePid(clientName());
        QDBusConnection::disconnectFromBus(name);
        return process;
    }
    bool isFound() { return owner() != 0; }
    QByteArray socketPath() const { return startedBusAddress().mid(QByteArray("unix:path=").size()); }
};

TEST_F(LateBusTest, IsFoundWhenTheBusComesAfterTheStart)
{
    killBus();
    std::unique_ptr<QProcess> window;
    {
        // It is asked, says nothing and goes: there is no bus at the start.
        const FakeBus none(socketPath());
        ASSERT_TRUE(none.listens());
        window = startWindow();
        ASSERT_TRUE(waitFor([&none] { return none.connectionCount() > 0; }));
    }
    QFile::remove(QFile::decodeName(socketPath()));
    startBus();
    EXPECT_TRUE(waitFor([this] { return isFound(); }));
    EXPECT_EQ(run({u"types"_s}).code, 0);
}

TEST_F(LateBusTest, IsFoundAgainWhenTheBusWasStartedAgain)
{
    startFirst();
    killBus();
    startBus();
    EXPECT_TRUE(waitFor([this] { return isFound(); }));
    EXPECT_EQ(first().state(), QProcess::Running);
}

TEST_F(LateBusTest, LeavesTheNameToTheNextWhenTheFirstEnds)
{
    // Both start without a bus and do not know of each other.
    killBus();
    const auto other = [this] {
        const FakeBus none(socketPath());
        auto window = startWindow();
        EXPECT_TRUE(waitFor([&none] { return none.connectionCount() > 0; }));
        return window;
    };
    const auto one = other();
    const auto two = other();
    QFile::remove(QFile::decodeName(socketPath()));
    startBus();
    ASSERT_TRUE(waitFor([this] { return isFound(); }));
    QProcess& first = owner() == one->processId() ? *one : *two;
    QProcess& next = &first == one.get() ? *two : *one;
    ASSERT_EQ(owner(), first.processId());
    first.kill();
    first.waitForFinished();
    EXPECT_TRUE(waitFor([&] { return owner() == next.processId(); }));
}

TEST_F(LateBusTest, StartsProgramsInTheUsersOwnEnvironment)
{
    const QString socket = inFolder(u"silent"_s);
    const FakeBus silent(QFile::encodeName(socket));
    ASSERT_TRUE(silent.listens());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + socket);
    environment.remove(u"TZ"_s);
    environment.remove(u"QT_QPA_PLATFORM"_s);
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    write(u"look"_s, "#!/bin/sh\nenv >\"$0.part\"\nmv \"$0.part\" \"$0.seen\"\n");
    QFile::setPermissions(inFolder(u"look"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const auto rule = start({u"rule"_s, u"set"_s, u"message_received"_s, u"zepa_command_notification_method"_s,
                             u"command="_s + inFolder(u"look"_s)});
    ASSERT_TRUE(waitFor([&rule] { return rule->state() == QProcess::NotRunning; }));
    ASSERT_EQ(finish(*rule).code, 0);
    const auto posting = start({u"post"_s, u"message_received"_s, u"--title"_s, u"Anna"_s});
    ASSERT_TRUE(waitFor([this] { return QFile::exists(inFolder(u"look.seen"_s)); }));
    ASSERT_TRUE(waitFor([&posting] { return posting->state() == QProcess::NotRunning; }));
    const QList<QByteArray> seen = read(u"look.seen"_s).split('\n');
    EXPECT_TRUE(seen.contains("DBUS_SESSION_BUS_ADDRESS=unix:path=" + QFile::encodeName(socket)));
    for (const QByteArray& variable : seen) {
        EXPECT_FALSE(variable.startsWith("TZ=")) << variable.constData();
        EXPECT_FALSE(variable.startsWith("QT_QPA_PLATFORM=")) << variable.constData();
    }
}

} // namespace
