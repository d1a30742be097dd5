// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QFileInfo>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString limit = u"duplicated_notifications_time"_s;

QStringList get(const QStringList& rest)
{
    return QStringList{u"setting"_s, u"get"_s} + rest;
}

QStringList set(const QStringList& rest)
{
    return QStringList{u"setting"_s, u"set"_s} + rest;
}

class ProgramSettings : public Program
{};

TEST_F(ProgramSettings, HaveTheirInitialValuesAtFirst)
{
    EXPECT_EQ(run(get({limit})).out, u"5\n"_s);
    EXPECT_EQ(run(get({u"alerts"_s})).out, u"buddies_only\n"_s);
}

TEST_F(ProgramSettings, KeepWhatIsSet)
{
    EXPECT_EQ(run(set({limit, u"0"_s})).code, 0);
    EXPECT_EQ(run(set({u"alerts"_s, u"never"_s})).code, 0);
    EXPECT_EQ(run(get({limit})).out, u"0\n"_s);
    EXPECT_EQ(run(get({u"alerts"_s})).out, u"never\n"_s);
}

TEST_F(ProgramSettings, AreAllListedWithWhatIsAllowed)
{
    const QJsonArray all = run(get({u"--json"_s})).json();
    EXPECT_EQ(all.size(), 5);
    EXPECT_EQ(all[0][u"id"_s].toString(), limit);
    EXPECT_EQ(all[0][u"value"_s].toInt(-1), 5);
    EXPECT_TRUE(run(get({})).out.contains(u"one of: never, always, buddies_only"_s));
    EXPECT_EQ(run(get({limit, u"--json"_s})).json().size(), 1);
}

TEST_F(ProgramSettings, RefuseOtherValuesAndNamesWithWhatIsAllowed)
{
    const Outcome tooMuch = run(set({limit, u"301"_s}));
    EXPECT_EQ(tooMuch.code, 2);
    EXPECT_TRUE(tooMuch.err.contains(u"a whole number from 0 to 300"_s)) << tooMuch.err.toStdString();
    EXPECT_EQ(run(set({u"alerts"_s, u"loud"_s})).code, 2);
    EXPECT_EQ(run(set({u"sound_theme"_s, u"../x"_s})).code, 2);
    const Outcome unknown = run(get({u"nope"_s}));
    EXPECT_EQ(unknown.code, 2);
    EXPECT_TRUE(unknown.err.contains(limit)) << unknown.err.toStdString();
    EXPECT_EQ(run(set({u"nope"_s, u"1"_s})).code, 2);
    EXPECT_FALSE(QFileInfo::exists(inFolder(u"settings/settings.ini"_s)));
}

TEST_F(ProgramSettings, ThatCannotBeWrittenAreAFailureThatNamesTheFile)
{
    write(u"settings"_s, "x");
    const Outcome outcome = run(set({limit, u"9"_s}));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"settings.ini"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramSettings, LieInTheUsersConfigurationFolderByDefault)
{
    environment.insert(u"XDG_CONFIG_HOME"_s, inFolder(u"config"_s));
    EXPECT_EQ(runBare(set({limit, u"9"_s})).code, 0);
    EXPECT_TRUE(read(u"config/zepa/settings.ini"_s).contains("duplicated_notifications_time=9"));
    EXPECT_TRUE(QFileInfo(inFolder(u"config/zepa/notifications"_s)).isDir());
}

} // namespace
