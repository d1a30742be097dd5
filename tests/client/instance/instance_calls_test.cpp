// SPDX-License-Identifier: Apache-2.0
#include "client/instance/bus_name.h"
#include "instance_fixture.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDir>
#include <QFile>

#include <csignal>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

const QString runMethod = u"Run"_s;
const QByteArray noInput;

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(u' ');
}

/// Calls of any program of the session, well-formed or not.
class InstanceCallsTest : public InstanceTest
{
protected:
    void SetUp() override { startFirst(); }

    /// The last part of the error's name; empty when there was none.
    std::string refusal(const QString& method, const QVariantList& arguments)
    {
        const QDBusMessage answer = call(method, arguments);
        EXPECT_EQ(answer.errorMessage().isEmpty(), answer.errorName().isEmpty());
        const QString own = u"zepa.Client1.Error."_s;
        EXPECT_TRUE(answer.errorName().isEmpty() || answer.errorName().startsWith(own))
            << answer.errorName().toStdString();
        return answer.errorName().mid(own.size()).toStdString();
    }
};

TEST_F(InstanceCallsTest, RefusesArgumentsOfOtherTypes)
{
    EXPECT_EQ(refusal(runMethod, {}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {u"types"_s, u"/"_s, noInput}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {words("types"), u"/"_s, u""_s}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {words("types"), u"/"_s, noInput, 1}), "WrongSignature");
    EXPECT_EQ(refusal(u"Cancel"_s, {1}), "WrongSignature");
    EXPECT_EQ(refusal(u"Activate"_s, {noInput}), "WrongSignature");
    EXPECT_TRUE(call(runMethod, {1}).errorMessage().contains(u"\"assay\""_s));
}

TEST_F(InstanceCallsTest, RefusesArgumentsOutOfBounds)
{
    const QString root = u"/"_s;
    EXPECT_EQ(refusal(runMethod, {QStringList(), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {QStringList(257, u"types"_s), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {QStringList{u"types"_s, QString(131072, u'x')}, root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), QString(), noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), u"tmp"_s, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), QString(4097, u'/'), noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), root, QByteArray(16777217, 'x')}), "WrongArgument");
    EXPECT_EQ(refusal(u"Activate"_s, {u"to\nken"_s}), "WrongArgument");
    EXPECT_EQ(refusal(u"Activate"_s, {QString(1025, u't')}), "WrongArgument");
}

TEST_F(InstanceCallsTest, RefusesCommandLinesThatAreWrongAndSaysWhatIsRight)
{
    const QString root = u"/"_s;
    EXPECT_EQ(refusal(runMethod, {words("frobnicate"), root, noInput}), "UnknownVerb");
    EXPECT_EQ(refusal(runMethod, {words("post"), root, noInput}), "WrongUsage");
    EXPECT_EQ(refusal(runMethod, {words("types --frobnicate"), root, noInput}), "WrongUsage");
    EXPECT_EQ(refusal(runMethod, {words("--settings x"), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types --settings /elsewhere"), root, noInput}), "WrongFolder");
    const QString text = call(runMethod, {words("frobnicate"), root, noInput}).errorMessage();
    EXPECT_TRUE(text.startsWith(u"unknown command \"frobnicate\"; commands are: post"_s)) << text.toStdString();
}

TEST_F(InstanceCallsTest, RefusesJobsAndMethodsThatAreNotThere)
{
    EXPECT_EQ(refusal(u"Cancel"_s, {1U}), "UnknownJob");
    EXPECT_EQ(refusal(u"Frobnicate"_s, {}), "UnknownMethod");
}

TEST_F(InstanceCallsTest, LetsNobodyEndAnothersJob)
{
    const auto waiting = start({u"play"_s, u"-"_s},
                               R"({"type": "info_notify", "title": "first"}
{"at": 600, "type": "info_notify", "title": "last"})");
    ASSERT_TRUE(waitForOutput(*waiting, "delivered"));
    EXPECT_EQ(refusal(u"Cancel"_s, {1U}), "UnknownJob");
    EXPECT_EQ(waiting->state(), QProcess::Running);
}

TEST_F(InstanceCallsTest, TakesOnlySoManyJobsOfOneCallerAndStillThoseOfOthers)
{
    const QByteArray script = R"({"at": 600, "type": "info_notify", "title": "last"})";
    std::string last;
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(last, "") << i;
        last = refusal(runMethod, {words("play -"), u"/"_s, script});
    }
    EXPECT_EQ(last, "TooMuch");
    // The same program under another name on the bus.
    const QString name = u"second"_s;
    QDBusConnection second = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    EXPECT_EQ(second.call(message(runMethod, {words("types"), u"/"_s, noInput})).errorName(),
              u"zepa.Client1.Error.TooMuch"_s);
    QDBusConnection::disconnectFromBus(name);

    EXPECT_EQ(run({u"types"_s}).code, 0);
    EXPECT_EQ(refusal(u"Cancel"_s, {1U}), "");
    EXPECT_EQ(refusal(runMethod, {words("types"), u"/"_s, noInput}), "");
}

TEST_F(InstanceCallsTest, TakesOnlySoManyCallsAtOnceOfOneCaller)
{
    // What arrives while it is stopped is there as a whole before it can look up the first caller.
    ::kill(static_cast<pid_t>(first().processId()), SIGSTOP);
    QList<QDBusPendingCall> calls;
    for (int i = 0; i < 100; ++i)
        calls.append(QDBusConnection::sessionBus().asyncCall(message(runMethod, {words("types"), u"/"_s, noInput})));
    ASSERT_FALSE(QDBusConnection::sessionBus().interface()->registeredServiceNames().value().isEmpty());
    ::kill(static_cast<pid_t>(first().processId()), SIGCONT);
    int refused = 0;
    for (QDBusPendingCall& call : calls) {
        call.waitForFinished();
        EXPECT_TRUE(!call.isError() || call.error().name() == u"zepa.Client1.Error.TooMuch"_s)
            << call.error().name().toStdString();
        refused += call.isError() ? 1 : 0;
    }
    EXPECT_EQ(refused, 84);
    EXPECT_EQ(run({u"types"_s}).code, 0);
}

TEST_F(InstanceCallsTest, SaysThatItIsBusyByAnExitCodeOfItsOwn)
{
    const QByteArray script = R"({"at": 600, "type": "info_notify", "title": "last"})";
    std::vector<std::unique_ptr<QProcess>> players;
    for (int i = 0; i < 64; ++i)
        players.push_back(start({u"play"_s, u"-"_s}, script));
    // Whoever of them has begun has been counted; the last may not have come to that yet.
    EXPECT_TRUE(waitFor([&] {
        const Outcome types = run({u"types"_s});
        EXPECT_TRUE(types.code == 0 || types.code == 6) << types.code << types.err.toStdString();
        return types.code == 6 && types.err.contains(u"64 commands are in progress"_s);
    }));
    for (const auto& player : players)
        player->kill();
    EXPECT_TRUE(waitFor([&] { return run({u"types"_s}).code == 0; }));
    for (const auto& player : players)
        player->waitForFinished();
}

TEST_F(InstanceCallsTest, AnswersOthersWhileAScriptIsPlayed)
{
    const QByteArray event("{\"type\": \"info_notify\", \"title\": \"T\"}\n");
    const auto player = start({u"play"_s, u"-"_s}, event.repeated(5000));
    ASSERT_TRUE(waitForOutput(*player, "posted"));
    EXPECT_EQ(run({u"types"_s}).code, 0);
    // Who was asked for later is done before.
    player->waitForReadyRead(0);
    EXPECT_FALSE(player->peek(player->bytesAvailable()).contains("summary"));
}

TEST_F(InstanceCallsTest, ShowsItsInterfaceAsItIsInstalled)
{
    const QDBusMessage answer = QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(clientName(), QString::fromLatin1(instance::objectPath),
                                       u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s));
    const QString shown = answer.arguments().value(0).toString();
    QFile file(QString::fromUtf8(ZEPA_INTERFACE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString installed = QString::fromUtf8(file.readAll());
    const qsizetype from = installed.indexOf(u"<interface"_s);
    ASSERT_GT(from, 0);
    EXPECT_TRUE(shown.contains(installed.mid(from, installed.indexOf(u"</interface>"_s) - from)));
}

TEST_F(InstanceCallsTest, GoesOnAfterAllOfThem)
{
    refusal(runMethod, {words("types"), QString(), noInput});
    EXPECT_EQ(ProgramRunner::run({u"types"_s}).code, 0);
    EXPECT_EQ(first().state(), QProcess::Running);
}

} // namespace
