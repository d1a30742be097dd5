// SPDX-License-Identifier: Apache-2.0
// Somebody else owns the client's name on the bus: what it says does not steer the user's terminal.
#include "client/instance/bus_name.h"
#include "instance_fixture.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

const QString clientInterface = QLatin1StringView(instance::interfaceName);
const QString clientPath = QLatin1StringView(instance::objectPath);
const QString hostile = u"\x1b]0;owned\x07\u009b2J\u202e\r"_s;
const QString escaped = u"\\u001b]0;owned\\u0007\\u009b2J\\u202e\\u000d"_s;

/// Takes every command for its own and answers with what the test wants to be said.
class ForgedOwner : public QDBusVirtualObject
{
public:
    /// An error when it is not empty, else output.
    QString error;

    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        if (!error.isEmpty())
            return bus.send(message.createErrorReply(QLatin1StringView(instance::errorPrefix) + u'X', error));
        bus.send(message.createReply(QVariantList{1U}));
        for (const bool isError : {false, true})
            send(message, bus, u"Output"_s, {1U, isError, u"a\tb\n"_s + hostile + u'\n'});
        send(message, bus, u"Finished"_s, {1U, 0});
        return true;
    }

private:
    static void send(const QDBusMessage& call, const QDBusConnection& bus, const QString& signal,
                     const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createTargetedSignal(call.service(), clientPath, clientInterface, signal);
        message.setArguments(arguments);
        bus.send(message);
    }
};

class InstanceForgedOwner : public InstanceTest
{
protected:
    void SetUp() override
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        ASSERT_TRUE(bus.registerVirtualObject(clientPath, &m_owner));
        ASSERT_TRUE(bus.registerService(clientName()));
    }
    void TearDown() override
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterService(clientName());
        bus.unregisterObject(clientPath);
    }

    Outcome runTypes()
    {
        const auto process = start({u"types"_s});
        EXPECT_TRUE(waitFor([&process] { return process->state() == QProcess::NotRunning; }));
        return finish(*process);
    }

    ForgedOwner m_owner;
};

TEST_F(InstanceForgedOwner, HasItsEscapesMadeVisible)
{
    const Outcome outcome = runTypes();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, u"a\tb\n"_s + escaped + u'\n');
    EXPECT_EQ(outcome.err, u"a\tb\n"_s + escaped + u'\n');
}

TEST_F(InstanceForgedOwner, HasTheEscapesOfAnErrorMadeVisible)
{
    m_owner.error = u"one"_s + hostile + u"\ntwo"_s;
    EXPECT_EQ(runTypes().err, u"zepa: one"_s + escaped + u"\nzepa: two\n"_s);
}

} // namespace
