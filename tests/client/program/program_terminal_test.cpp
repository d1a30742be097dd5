// SPDX-License-Identifier: Apache-2.0
// What other people named or wrote does not steer the user's terminal.
#include "program.h"

#include <QDir>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString runs = u"zepa_command_notification_method"_s;
const QString received = u"message_received"_s;
const QString hostile = u"x\x1b]0;owned\x07\u009b2J\u202e\r"_s;
// JSON has a shorter escape for the last one.
const QString escapedInJson = u"x\\u001b]0;owned\\u0007\\u009b2J\\u202e\\r"_s;
const QString escaped = u"x\\u001b]0;owned\\u0007\\u009b2J\\u202e\\u000d"_s;

class ProgramTerminal : public Program
{
protected:
    /// Both streams of a run, in which nothing but line breaks and tabs may move the cursor.
    QString shown(const QStringList& arguments)
    {
        const Outcome outcome = run(arguments);
        const QString all = outcome.out + outcome.err;
        static const QRegularExpression steering(u"[^\\P{C}\\n\\t]"_s);
        EXPECT_FALSE(all.contains(steering)) << all.toUtf8().toPercentEncoding(" \n<>\"=:,").toStdString();
        return all;
    }
};

TEST_F(ProgramTerminal, ShowsTheValueOfARuleWithVisibleEscapes)
{
    ASSERT_EQ(run({u"rule"_s, u"set"_s, received, runs, u"command="_s + hostile}).code, 0);
    EXPECT_TRUE(shown({u"rules"_s, received}).contains(escaped));
    // What is wrong is shown beside what the rule has.
    EXPECT_TRUE(shown({u"rule"_s, u"set"_s, received, runs, u"no=1"_s}).contains(escaped));
    const QStringList forPrograms{u"rules"_s, received, u"--json"_s};
    EXPECT_TRUE(shown(forPrograms).contains(escapedInJson));
    bool isThere = false;
    const QJsonArray rules = run(forPrograms).json();
    for (const QJsonValue& rule : rules)
        isThere = isThere || rule[u"settings"_s][u"command"_s].toString() == hostile;
    EXPECT_TRUE(isThere);
}

TEST_F(ProgramTerminal, ShowsTheNameOfAThemeWithVisibleEscapes)
{
    environment.insert(u"XDG_DATA_HOME"_s, inFolder(u"data"_s));
    const QString name = hostile + u"\nzepa: forged"_s;
    ASSERT_TRUE(QDir().mkpath(inFolder(u"data/zepa/themes/icons/"_s) + name));
    const QString setting = u"icon_theme"_s;
    const QString visible = escaped + u"\\nzepa: forged"_s;
    EXPECT_TRUE(shown({u"setting"_s, u"set"_s, setting, u"no"_s}).contains(visible));
    ASSERT_EQ(run({u"setting"_s, u"set"_s, setting, name}).code, 0);
    EXPECT_EQ(shown({u"setting"_s, u"get"_s, setting}), visible + u'\n');
    EXPECT_TRUE(shown({u"setting"_s, u"get"_s}).contains(visible));
    EXPECT_TRUE(shown({u"setting"_s, u"get"_s, setting, u"--json"_s}).contains(escapedInJson));
}

} // namespace
