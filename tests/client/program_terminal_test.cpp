// SPDX-License-Identifier: Apache-2.0
// What other people named or wrote does not steer the user's terminal.
#include "program.h"

#include <QDir>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

const QString runs = QStringLiteral("zepa_command_notification_method");
const QString received = QStringLiteral("message_received");
const QString hostile = QStringLiteral("x\x1b]0;owned\x07\u009b2J\u202e\r");
// JSON has a shorter escape for the last one.
const QString escapedInJson = QStringLiteral("x\\u001b]0;owned\\u0007\\u009b2J\\u202e\\r");
const QString escaped = QStringLiteral("x\\u001b]0;owned\\u0007\\u009b2J\\u202e\\u000d");

class ProgramTerminal : public Program
{
protected:
    /// Both streams of a run, in which nothing but line breaks and tabs may move the cursor.
    QString shown(const QStringList& arguments)
    {
        const Outcome outcome = run(arguments);
        const QString all = outcome.out + outcome.err;
        static const QRegularExpression steering(QStringLiteral("[^\\P{C}\\n\\t]"));
        EXPECT_FALSE(all.contains(steering)) << all.toUtf8().toPercentEncoding(" \n<>\"=:,").toStdString();
        return all;
    }
};

TEST_F(ProgramTerminal, ShowsTheValueOfARuleWithVisibleEscapes)
{
    ASSERT_EQ(
        run({QStringLiteral("rule"), QStringLiteral("set"), received, runs, QStringLiteral("command=") + hostile}).code,
        0);
    EXPECT_TRUE(shown({QStringLiteral("rules"), received}).contains(escaped));
    // What is wrong is shown beside what the rule has.
    EXPECT_TRUE(shown({QStringLiteral("rule"), QStringLiteral("set"), received, runs, QStringLiteral("no=1")})
                    .contains(escaped));
    const QStringList forPrograms{QStringLiteral("rules"), received, QStringLiteral("--json")};
    EXPECT_TRUE(shown(forPrograms).contains(escapedInJson));
    bool isThere = false;
    const QJsonArray rules = run(forPrograms).json();
    for (const QJsonValue& rule : rules)
        isThere = isThere || rule[QStringLiteral("settings")][QStringLiteral("command")].toString() == hostile;
    EXPECT_TRUE(isThere);
}

TEST_F(ProgramTerminal, ShowsTheNameOfAThemeWithVisibleEscapes)
{
    environment.insert(QStringLiteral("XDG_DATA_HOME"), inFolder(QStringLiteral("data")));
    const QString name = hostile + QStringLiteral("\nzepa: forged");
    ASSERT_TRUE(QDir().mkpath(inFolder(QStringLiteral("data/zepa/themes/icons/")) + name));
    const QString setting = QStringLiteral("icon_theme");
    const QString visible = escaped + QStringLiteral("\\nzepa: forged");
    EXPECT_TRUE(
        shown({QStringLiteral("setting"), QStringLiteral("set"), setting, QStringLiteral("no")}).contains(visible));
    ASSERT_EQ(run({QStringLiteral("setting"), QStringLiteral("set"), setting, name}).code, 0);
    EXPECT_EQ(shown({QStringLiteral("setting"), QStringLiteral("get"), setting}), visible + u'\n');
    EXPECT_TRUE(shown({QStringLiteral("setting"), QStringLiteral("get")}).contains(visible));
    EXPECT_TRUE(shown({QStringLiteral("setting"), QStringLiteral("get"), setting, QStringLiteral("--json")})
                    .contains(escapedInJson));
}

} // namespace
