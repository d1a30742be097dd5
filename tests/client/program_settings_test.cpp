// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QFileInfo>
#include <QJsonObject>

namespace {

const QString limit = QStringLiteral("duplicated_notifications_time");

QStringList get(const QStringList& rest)
{
    return QStringList{QStringLiteral("setting"), QStringLiteral("get")} + rest;
}

QStringList set(const QStringList& rest)
{
    return QStringList{QStringLiteral("setting"), QStringLiteral("set")} + rest;
}

class ProgramSettings : public Program
{};

TEST_F(ProgramSettings, HaveTheirInitialValuesAtFirst)
{
    EXPECT_EQ(run(get({limit})).out, QStringLiteral("5\n"));
    EXPECT_EQ(run(get({QStringLiteral("alerts")})).out, QStringLiteral("buddies_only\n"));
}

TEST_F(ProgramSettings, KeepWhatIsSet)
{
    EXPECT_EQ(run(set({limit, QStringLiteral("0")})).code, 0);
    EXPECT_EQ(run(set({QStringLiteral("alerts"), QStringLiteral("never")})).code, 0);
    EXPECT_EQ(run(get({limit})).out, QStringLiteral("0\n"));
    EXPECT_EQ(run(get({QStringLiteral("alerts")})).out, QStringLiteral("never\n"));
}

TEST_F(ProgramSettings, AreAllListedWithWhatIsAllowed)
{
    const QJsonArray all = run(get({QStringLiteral("--json")})).json();
    EXPECT_EQ(all.size(), 5);
    EXPECT_EQ(all[0][QStringLiteral("id")].toString(), limit);
    EXPECT_EQ(all[0][QStringLiteral("value")].toInt(-1), 5);
    EXPECT_TRUE(run(get({})).out.contains(QStringLiteral("one of: never, always, buddies_only")));
    EXPECT_EQ(run(get({limit, QStringLiteral("--json")})).json().size(), 1);
}

TEST_F(ProgramSettings, RefuseOtherValuesAndNamesWithWhatIsAllowed)
{
    const Outcome tooMuch = run(set({limit, QStringLiteral("301")}));
    EXPECT_EQ(tooMuch.code, 2);
    EXPECT_TRUE(tooMuch.err.contains(QStringLiteral("a whole number from 0 to 300"))) << tooMuch.err.toStdString();
    EXPECT_EQ(run(set({QStringLiteral("alerts"), QStringLiteral("loud")})).code, 2);
    EXPECT_EQ(run(set({QStringLiteral("sound_theme"), QStringLiteral("../x")})).code, 2);
    const Outcome unknown = run(get({QStringLiteral("nope")}));
    EXPECT_EQ(unknown.code, 2);
    EXPECT_TRUE(unknown.err.contains(limit)) << unknown.err.toStdString();
    EXPECT_EQ(run(set({QStringLiteral("nope"), QStringLiteral("1")})).code, 2);
    EXPECT_FALSE(QFileInfo::exists(inFolder(QStringLiteral("settings/settings.ini"))));
}

TEST_F(ProgramSettings, ThatCannotBeWrittenAreAFailureThatNamesTheFile)
{
    write(QStringLiteral("settings"), "x");
    const Outcome outcome = run(set({limit, QStringLiteral("9")}));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("settings.ini"))) << outcome.err.toStdString();
}

TEST_F(ProgramSettings, LieInTheUsersConfigurationFolderByDefault)
{
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), inFolder(QStringLiteral("config")));
    EXPECT_EQ(runBare(set({limit, QStringLiteral("9")})).code, 0);
    EXPECT_TRUE(read(QStringLiteral("config/zepa/settings.ini")).contains("duplicated_notifications_time=9"));
    EXPECT_TRUE(QFileInfo(inFolder(QStringLiteral("config/zepa/notifications"))).isDir());
}

} // namespace
