// SPDX-License-Identifier: Apache-2.0
#include "client/services/settings.h"
#include "client/services/themes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using zepa::themeFolder;
using zepa::ThemeKind;

/// A data folder of the test's own, in which it can put themes.
class Themes : public testing::Test
{
protected:
    Themes() { qputenv("XDG_DATA_HOME", m_data.path().toLocal8Bit()); }

    QString addTheme(const QString& path)
    {
        const QString folder = m_data.path() + QStringLiteral("/zepa/themes/") + path + u'/';
        EXPECT_TRUE(QDir().mkpath(folder));
        return folder;
    }

    QTemporaryDir m_data;
};

TEST_F(Themes, AreTheInstalledDefaultWhenTheUserHasNone)
{
    const QString sounds = themeFolder(ThemeKind::Sounds, QStringLiteral("default"));
    EXPECT_EQ(sounds, zepa::installedThemes() + QStringLiteral("sounds/default/"));
    EXPECT_EQ(themeFolder(ThemeKind::Icons, QStringLiteral("default")),
              zepa::installedThemes() + QStringLiteral("icons/default/"));
    EXPECT_EQ(themeFolder(ThemeKind::Roster, QStringLiteral("default")),
              zepa::installedThemes() + QStringLiteral("roster/default/"));
}

TEST_F(Themes, OfTheUserComeBeforeInstalledOnesOfTheSameName)
{
    const QString mine = addTheme(QStringLiteral("sounds/default"));
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, QStringLiteral("default")), mine);
    EXPECT_NE(themeFolder(ThemeKind::Icons, QStringLiteral("default")), mine);
}

TEST_F(Themes, ThatAreMissingGiveTheDefault)
{
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, QStringLiteral("soft")),
              themeFolder(ThemeKind::Sounds, QStringLiteral("default")));
    const QString soft = addTheme(QStringLiteral("sounds/soft"));
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, QStringLiteral("soft")), soft);
}

TEST_F(Themes, LeadNowhereElse)
{
    addTheme(QStringLiteral("sounds"));
    QDir().mkpath(m_data.path() + QStringLiteral("/secret"));
    const QString fallback = themeFolder(ThemeKind::Sounds, QStringLiteral("default"));
    for (const QString& name : {QStringLiteral("../../../secret"), QStringLiteral(".."), QStringLiteral("."),
                                QStringLiteral("/"), QString(), m_data.path()})
        EXPECT_EQ(themeFolder(ThemeKind::Sounds, name), fallback) << name.toStdString();
}

TEST_F(Themes, AreListedOnceSortedAndWithTheDefault)
{
    addTheme(QStringLiteral("roster/zebra"));
    addTheme(QStringLiteral("roster/ant"));
    addTheme(QStringLiteral("roster/default"));
    const QStringList names = zepa::themeNames(ThemeKind::Roster);
    EXPECT_EQ(names.count(QStringLiteral("default")), 1);
    EXPECT_TRUE(names.contains(QStringLiteral("zebra")));
    EXPECT_EQ(names.constFirst(), QStringLiteral("ant"));
}

TEST_F(Themes, ThatTheUserChoosesTakeEffectAtOnce)
{
    const QString soft = addTheme(QStringLiteral("sounds/soft"));
    const QString round = addTheme(QStringLiteral("roster/round"));
    const QString flat = addTheme(QStringLiteral("icons/flat"));
    const QTemporaryDir home;
    zepa::Settings settings(home.path());
    const auto choose = [&settings](const QString& id, const QString& name) {
        return settings.store(ZepaField::comboBox({}, id, {name}, {}, name, {}), name);
    };
    ASSERT_TRUE(choose(QStringLiteral("sound_theme"), QStringLiteral("soft")));
    ASSERT_TRUE(choose(QStringLiteral("roster_theme"), QStringLiteral("round")));
    ASSERT_TRUE(choose(QStringLiteral("icon_theme"), QStringLiteral("flat")));
    EXPECT_EQ(settings.getCurrentSoundThemeDir(), soft);
    EXPECT_EQ(settings.getCurrentRosterThemeDir(), round);
    EXPECT_EQ(settings.getCurrentThemeDir(), flat);
    ASSERT_TRUE(QDir(soft).removeRecursively());
    EXPECT_EQ(settings.getCurrentSoundThemeDir(), themeFolder(ThemeKind::Sounds, QStringLiteral("default")));
}

TEST_F(Themes, ThatAreInstalledLieBesideTheProgram)
{
    // The test program lies in BUILD/bin, as a program lies in PREFIX/bin: no share folder is there, so the source
    // tree's themes are used.
    EXPECT_TRUE(QFileInfo(zepa::installedThemes() + QStringLiteral("sounds/default")).isDir());
    EXPECT_TRUE(zepa::installedThemes().endsWith(QStringLiteral("/client/themes/")));
}

} // namespace
