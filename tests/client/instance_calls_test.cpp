// SPDX-License-Identifier: Apache-2.0
#include "client/instance/names.h"
#include "instance_fixture.h"

#include <QDBusConnection>
#include <QDir>
#include <QFile>

namespace {

using namespace zepa;

const QString runMethod = QStringLiteral("Run");
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
        const QString own = QStringLiteral("zepa.Client1.Error.");
        EXPECT_TRUE(answer.errorName().isEmpty() || answer.errorName().startsWith(own))
            << answer.errorName().toStdString();
        return answer.errorName().mid(own.size()).toStdString();
    }
};

TEST_F(InstanceCallsTest, RefusesArgumentsOfOtherTypes)
{
    EXPECT_EQ(refusal(runMethod, {}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {QStringLiteral("types"), QStringLiteral("/"), noInput}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {words("types"), QStringLiteral("/"), QStringLiteral("")}), "WrongSignature");
    EXPECT_EQ(refusal(runMethod, {words("types"), QStringLiteral("/"), noInput, 1}), "WrongSignature");
    EXPECT_EQ(refusal(QStringLiteral("Cancel"), {1}), "WrongSignature");
    EXPECT_EQ(refusal(QStringLiteral("Activate"), {noInput}), "WrongSignature");
    EXPECT_TRUE(call(runMethod, {1}).errorMessage().contains(QStringLiteral("\"assay\"")));
}

TEST_F(InstanceCallsTest, RefusesArgumentsOutOfBounds)
{
    const QString root = QStringLiteral("/");
    EXPECT_EQ(refusal(runMethod, {QStringList(), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {QStringList(257, QStringLiteral("types")), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {QStringList{QStringLiteral("types"), QString(131072, u'x')}, root, noInput}),
              "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), QString(), noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), QStringLiteral("tmp"), noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), QString(4097, u'/'), noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types"), root, QByteArray(16777217, 'x')}), "WrongArgument");
    EXPECT_EQ(refusal(QStringLiteral("Activate"), {QStringLiteral("to\nken")}), "WrongArgument");
    EXPECT_EQ(refusal(QStringLiteral("Activate"), {QString(1025, u't')}), "WrongArgument");
}

TEST_F(InstanceCallsTest, RefusesCommandLinesThatAreWrongAndSaysWhatIsRight)
{
    const QString root = QStringLiteral("/");
    EXPECT_EQ(refusal(runMethod, {words("frobnicate"), root, noInput}), "UnknownVerb");
    EXPECT_EQ(refusal(runMethod, {words("post"), root, noInput}), "WrongUsage");
    EXPECT_EQ(refusal(runMethod, {words("types --frobnicate"), root, noInput}), "WrongUsage");
    EXPECT_EQ(refusal(runMethod, {words("--settings x"), root, noInput}), "WrongArgument");
    EXPECT_EQ(refusal(runMethod, {words("types --settings /elsewhere"), root, noInput}), "WrongFolder");
    const QString text = call(runMethod, {words("frobnicate"), root, noInput}).errorMessage();
    EXPECT_TRUE(text.startsWith(QStringLiteral("there is no verb \"frobnicate\"; there are: post")))
        << text.toStdString();
}

TEST_F(InstanceCallsTest, RefusesJobsAndMethodsThatAreNotThere)
{
    EXPECT_EQ(refusal(QStringLiteral("Cancel"), {1U}), "UnknownJob");
    EXPECT_EQ(refusal(QStringLiteral("Frobnicate"), {}), "UnknownMethod");
}

TEST_F(InstanceCallsTest, LetsNobodyEndAnothersJob)
{
    const auto waiting = start({QStringLiteral("play"), QStringLiteral("-")},
                               R"({"type": "info_notify", "title": "first"}
{"at": 600, "type": "info_notify", "title": "last"})");
    ASSERT_TRUE(waitForOutput(*waiting, "delivered"));
    EXPECT_EQ(refusal(QStringLiteral("Cancel"), {1U}), "UnknownJob");
    EXPECT_EQ(waiting->state(), QProcess::Running);
}

TEST_F(InstanceCallsTest, TakesOnlySoManyJobs)
{
    const QByteArray script = R"({"at": 600, "type": "info_notify", "title": "last"})";
    std::string last;
    for (int i = 0; i < 65; ++i) {
        EXPECT_EQ(last, "") << i;
        last = refusal(runMethod, {words("play -"), QStringLiteral("/"), script});
    }
    EXPECT_EQ(last, "TooMuch");
    EXPECT_EQ(refusal(QStringLiteral("Cancel"), {1U}), "");
    EXPECT_EQ(refusal(runMethod, {words("types"), QStringLiteral("/"), noInput}), "");
}

TEST_F(InstanceCallsTest, ShowsItsInterfaceAsItIsInstalled)
{
    const QDBusMessage answer = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        clientName(), instance::objectPath, QStringLiteral("org.freedesktop.DBus.Introspectable"),
        QStringLiteral("Introspect")));
    const QString shown = answer.arguments().value(0).toString();
    QFile file(QStringLiteral(ZEPA_INTERFACE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString installed = QString::fromUtf8(file.readAll());
    const qsizetype from = installed.indexOf(QStringLiteral("<interface"));
    ASSERT_GT(from, 0);
    EXPECT_TRUE(shown.contains(installed.mid(from, installed.indexOf(QStringLiteral("</interface>")) - from)));
}

TEST_F(InstanceCallsTest, GoesOnAfterAllOfThem)
{
    refusal(runMethod, {words("types"), QString(), noInput});
    EXPECT_EQ(ProgramRunner::run({QStringLiteral("types")}).code, 0);
    EXPECT_EQ(first().state(), QProcess::Running);
}

} // namespace
