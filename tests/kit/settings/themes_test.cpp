// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/settings.h"
#include "kit/settings/themes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
        const QString folder = m_data.path() + u"/zepa/themes/"_s + path + u'/';
        EXPECT_TRUE(QDir().mkpath(folder));
        return folder;
    }

    QTemporaryDir m_data;
};

TEST_F(Themes, AreTheInstalledDefaultWhenTheUserHasNone)
{
    const QString sounds = themeFolder(ThemeKind::Sounds, u"default"_s);
    EXPECT_EQ(sounds, zepa::installedThemes() + u"sounds/default/"_s);
    EXPECT_EQ(themeFolder(ThemeKind::Icons, u"default"_s), zepa::installedThemes() + u"icons/default/"_s);
    EXPECT_EQ(themeFolder(ThemeKind::Roster, u"default"_s), zepa::installedThemes() + u"roster/default/"_s);
}

TEST_F(Themes, OfTheUserComeBeforeInstalledOnesOfTheSameName)
{
    const QString mine = addTheme(u"sounds/default"_s);
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, u"default"_s), mine);
    EXPECT_NE(themeFolder(ThemeKind::Icons, u"default"_s), mine);
}

TEST_F(Themes, ThatAreMissingGiveTheDefault)
{
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, u"soft"_s), themeFolder(ThemeKind::Sounds, u"default"_s));
    const QString soft = addTheme(u"sounds/soft"_s);
    EXPECT_EQ(themeFolder(ThemeKind::Sounds, u"soft"_s), soft);
}

TEST_F(Themes, LeadNowhereElse)
{
    addTheme(u"sounds"_s);
    QDir().mkpath(m_data.path() + u"/secret"_s);
    const QString fallback = themeFolder(ThemeKind::Sounds, u"default"_s);
    for (const QString& name : {u"../../../secret"_s, u".."_s, u"."_s, u"/"_s, QString(), m_data.path()})
        EXPECT_EQ(themeFolder(ThemeKind::Sounds, name), fallback) << name.toStdString();
}

TEST_F(Themes, AreListedOnceSortedAndWithTheDefault)
{
    addTheme(u"roster/zebra"_s);
    addTheme(u"roster/ant"_s);
    addTheme(u"roster/default"_s);
    const QStringList names = zepa::themeNames(ThemeKind::Roster);
    EXPECT_EQ(names.count(u"default"_s), 1);
    EXPECT_TRUE(names.contains(u"zebra"_s));
    EXPECT_EQ(names.constFirst(), u"ant"_s);
}

TEST_F(Themes, ThatTheUserChoosesTakeEffectAtOnce)
{
    const QString soft = addTheme(u"sounds/soft"_s);
    const QString round = addTheme(u"roster/round"_s);
    const QString flat = addTheme(u"icons/flat"_s);
    const QTemporaryDir home;
    zepa::Settings settings(home.path());
    const auto choose = [&settings](const QString& id, const QString& name) {
        return settings.store(ZepaField::comboBox({}, id, {name}, {}, name, {}), name);
    };
    ASSERT_TRUE(choose(u"sound_theme"_s, u"soft"_s));
    ASSERT_TRUE(choose(u"roster_theme"_s, u"round"_s));
    ASSERT_TRUE(choose(u"icon_theme"_s, u"flat"_s));
    EXPECT_EQ(settings.getCurrentSoundThemeDir(), soft);
    EXPECT_EQ(settings.getCurrentRosterThemeDir(), round);
    EXPECT_EQ(settings.getCurrentThemeDir(), flat);
    ASSERT_TRUE(QDir(soft).removeRecursively());
    EXPECT_EQ(settings.getCurrentSoundThemeDir(), themeFolder(ThemeKind::Sounds, u"default"_s));
}

TEST_F(Themes, ThatAreInstalledLieBesideTheProgram)
{
    // The test program lies in BUILD/bin, as a program lies in PREFIX/bin: no share folder is there, so the source
    // tree's themes are used.
    EXPECT_TRUE(QFileInfo(zepa::installedThemes() + u"sounds/default"_s).isDir());
    EXPECT_TRUE(zepa::installedThemes().endsWith(u"/client/themes/"_s));
}

} // namespace
