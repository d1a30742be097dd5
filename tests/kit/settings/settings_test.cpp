// SPDX-License-Identifier: Apache-2.0
#include "kit/files/base_folders.h"
#include "kit/settings/global_settings.h"
#include "kit/settings/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::Settings;

ZepaField limitField()
{
    return ZepaField::spinBox({}, u"duplicated_notifications_time"_s, 300, 0, 5, {}, {});
}

ZepaField alertsField()
{
    return ZepaField::comboBox({}, u"alerts"_s, {u"never"_s, u"always"_s, u"buddies_only"_s}, {}, u"buddies_only"_s,
                               {});
}

class SettingsTest : public testing::Test
{
protected:
    QString folder() const { return m_home.path() + u"/settings"_s; }

    void write(const QByteArray& content)
    {
        QDir().mkpath(folder());
        QFile file(folder() + u"/settings.ini"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_home;
};

TEST_F(SettingsTest, MakesTheNotificationsFolder)
{
    const Settings settings(folder());
    EXPECT_TRUE(settings.isUsable());
    EXPECT_TRUE(QFileInfo(folder() + u"/notifications"_s).isDir());
}

TEST_F(SettingsTest, AreWhatTheLibraryGetsWhileTheyLive)
{
    {
        Settings settings(folder());
        EXPECT_EQ(ZepaSettingsManager::getInstance(), &settings);
        EXPECT_EQ(ZepaSettingsManagerPrivate::settingsMgrPrivInstance, &settings);
    }
    EXPECT_EQ(ZepaSettingsManagerPrivate::settingsMgrPrivInstance, nullptr);
}

TEST_F(SettingsTest, GiveEveryFolderWithASeparatorAtItsEnd)
{
    for (const QString& name : {folder(), folder() + u'/', folder() + u"//"_s, folder() + u"/../settings"_s}) {
        const Settings settings(name);
        EXPECT_EQ(settings.getSettingsDir(), folder() + u'/');
        for (const QString& theme :
             {settings.getCurrentThemeDir(), settings.getCurrentRosterThemeDir(), settings.getCurrentSoundThemeDir()})
            EXPECT_TRUE(theme.endsWith(u'/') && !theme.endsWith(u"//"_s)) << theme.toStdString();
    }
}

TEST_F(SettingsTest, MakeARelativeFolderAbsolute)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_home.path()));
    {
        const Settings settings(u"here"_s);
        EXPECT_EQ(settings.getSettingsDir(), QDir::currentPath() + u"/here/"_s);
        EXPECT_TRUE(settings.isUsable());
    }
    QDir::setCurrent(before);
}

TEST_F(SettingsTest, AreNotUsableWhereAFileStandsInTheWay)
{
    QFile file(folder());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    Settings settings(folder());
    EXPECT_FALSE(settings.isUsable());
    EXPECT_FALSE(settings.store(limitField(), u"9"_s));
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
}

TEST_F(SettingsTest, GiveTheFieldsOwnValueUntilOneIsStored)
{
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), u"buddies_only"_s);
    EXPECT_EQ(settings.readGlobalSetting(ZepaField()).getType(), 0);
}

TEST_F(SettingsTest, KeepAStoredValueForTheNextStart)
{
    {
        Settings settings(folder());
        EXPECT_TRUE(settings.store(limitField(), u"300"_s));
        EXPECT_TRUE(settings.store(alertsField(), u"never"_s));
        EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 300);
    }
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 300);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), u"never"_s);
}

TEST_F(SettingsTest, RefuseToStoreWhatTheFieldDoesNotAllow)
{
    Settings settings(folder());
    EXPECT_FALSE(settings.store(limitField(), u"301"_s));
    EXPECT_FALSE(settings.store(alertsField(), u"loud"_s));
    EXPECT_FALSE(settings.store(ZepaField(), u"x"_s));
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
    EXPECT_FALSE(QFileInfo::exists(settings.settingsFile()));
}

TEST_F(SettingsTest, TakeAStoredValueThatTheFieldDoesNotAllowAsNeverStored)
{
    for (const QByteArray value :
         {"-1", "301", "x", "", "1.5", "99999999999999999999", "5, 6", "@Invalid()", "\"\\x0\"", "0x10"}) {
        write("[General]\nduplicated_notifications_time=" + value + "\nsound_theme=" + value + '\n');
        const Settings settings(folder());
        EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5) << value.constData();
        const ZepaField theme = ZepaField::comboBox({}, u"sound_theme"_s, {u"default"_s}, {}, u"default"_s, {});
        EXPECT_EQ(settings.readGlobalSetting(theme).getSelectedId(), u"default"_s) << value.constData();
    }
}

TEST_F(SettingsTest, HandOnAChoiceForAlertsThatNobodyOffersAsItIsStored)
{
    for (const QString& value : {u"sometimes"_s, u"Always"_s, u""_s}) {
        write("[General]\nalerts=" + value.toUtf8() + '\n');
        const Settings settings(folder());
        const ZepaField field = settings.readGlobalSetting(alertsField());
        EXPECT_EQ(field.getSelectedId(), value);
        EXPECT_EQ(field.getItemIds(), alertsField().getItemIds());
    }
    // A field of another type has no choice to hand on.
    write("[General]\nalerts=sometimes\n");
    const Settings settings(folder());
    const ZepaField box = ZepaField::checkBox({}, u"alerts"_s, true, {}, {});
    EXPECT_EQ(settings.readGlobalSetting(box).getText(), u"true"_s);
}

TEST_F(SettingsTest, ReadWhatAPersonWrote)
{
    write("; mine\nduplicated_notifications_time = 17\r\nalerts=\"always\"\n\n[other]\nalerts=never\n");
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 17);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), u"always"_s);
}

TEST_F(SettingsTest, SurviveAFileThatIsNone)
{
    QByteArray junk;
    for (int i = 0; i < 100000; ++i)
        junk += static_cast<char>((i * 7919) % 256);
    write(junk + "\n[[[\n=\n\\\nalerts");
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
}

TEST_F(SettingsTest, KeepWhatElseIsInTheFile)
{
    write("[windows]\nchat=12\n");
    {
        Settings settings(folder());
        ASSERT_TRUE(settings.store(limitField(), u"8"_s));
    }
    QFile file(folder() + u"/settings.ini"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("chat=12")) << content.constData();
    EXPECT_TRUE(content.contains("duplicated_notifications_time=8")) << content.constData();
}

TEST_F(SettingsTest, AnswerFromMemory)
{
    write("[General]\nduplicated_notifications_time=17\n");
    const Settings settings(folder());
    ASSERT_TRUE(QFile::remove(folder() + u"/settings.ini"_s));
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 17);
}

TEST(GlobalSettings, HoldTheTwoThatTheLibraryReadsAndOneForEachTheme)
{
    QStringList ids;
    for (const ZepaField& setting : zepa::globalSettings()) {
        ids.append(setting.getId());
        EXPECT_NE(setting.getType(), 0);
        EXPECT_FALSE(setting.getLabel().isEmpty());
    }
    EXPECT_EQ(ids, QStringList({u"duplicated_notifications_time"_s, u"alerts"_s, u"icon_theme"_s, u"roster_theme"_s,
                                u"sound_theme"_s}));
    EXPECT_EQ(zepa::globalSettings().at(0).getIntValue(), 5);
    EXPECT_EQ(zepa::globalSettings().at(0).getUpperBound(), 300);
    EXPECT_EQ(zepa::globalSettings().at(1).getSelectedId(), u"buddies_only"_s);
}

TEST(BaseFolders, FollowTheirVariables)
{
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    qputenv("XDG_DATA_HOME", "/somewhere/data/");
    EXPECT_EQ(zepa::configFolder(), u"/somewhere/config/zepa/"_s);
    EXPECT_EQ(zepa::dataFolder(), u"/somewhere/data/zepa/"_s);
}

TEST(BaseFolders, HaveTheirDefaultsWhereAVariableIsUnsetEmptyOrRelative)
{
    const QString home = QDir::homePath();
    for (const char* value : {"", "config", "./config"}) {
        qputenv("XDG_CONFIG_HOME", value);
        qputenv("XDG_DATA_HOME", value);
        EXPECT_EQ(zepa::configFolder(), home + u"/.config/zepa/"_s);
        EXPECT_EQ(zepa::dataFolder(), home + u"/.local/share/zepa/"_s);
    }
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(zepa::configFolder(), home + u"/.config/zepa/"_s);
}

} // namespace
