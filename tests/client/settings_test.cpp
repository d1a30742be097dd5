// SPDX-License-Identifier: Apache-2.0
#include "client/services/base_folders.h"
#include "client/services/global_settings.h"
#include "client/services/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using zepa::Settings;

ZepaField limitField()
{
    return ZepaField::spinBox({}, QStringLiteral("duplicated_notifications_time"), 300, 0, 5, {}, {});
}

ZepaField alertsField()
{
    return ZepaField::comboBox({}, QStringLiteral("alerts"),
                               {QStringLiteral("never"), QStringLiteral("always"), QStringLiteral("buddies_only")}, {},
                               QStringLiteral("buddies_only"), {});
}

class SettingsTest : public testing::Test
{
protected:
    QString folder() const { return m_home.path() + QStringLiteral("/settings"); }

    void write(const QByteArray& content)
    {
        QDir().mkpath(folder());
        QFile file(folder() + QStringLiteral("/settings.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir m_home;
};

TEST_F(SettingsTest, MakesTheNotificationsFolder)
{
    const Settings settings(folder());
    EXPECT_TRUE(settings.isUsable());
    EXPECT_TRUE(QFileInfo(folder() + QStringLiteral("/notifications")).isDir());
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
    for (const QString& name :
         {folder(), folder() + u'/', folder() + QStringLiteral("//"), folder() + QStringLiteral("/../settings")}) {
        const Settings settings(name);
        EXPECT_EQ(settings.getSettingsDir(), folder() + u'/');
        for (const QString& theme :
             {settings.getCurrentThemeDir(), settings.getCurrentRosterThemeDir(), settings.getCurrentSoundThemeDir()})
            EXPECT_TRUE(theme.endsWith(u'/') && !theme.endsWith(QStringLiteral("//"))) << theme.toStdString();
    }
}

TEST_F(SettingsTest, MakeARelativeFolderAbsolute)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_home.path()));
    {
        const Settings settings(QStringLiteral("here"));
        EXPECT_EQ(settings.getSettingsDir(), QDir::currentPath() + QStringLiteral("/here/"));
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
    EXPECT_FALSE(settings.store(limitField(), QStringLiteral("9")));
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
}

TEST_F(SettingsTest, GiveTheFieldsOwnValueUntilOneIsStored)
{
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 5);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), QStringLiteral("buddies_only"));
    EXPECT_EQ(settings.readGlobalSetting(ZepaField()).getType(), 0);
}

TEST_F(SettingsTest, KeepAStoredValueForTheNextStart)
{
    {
        Settings settings(folder());
        EXPECT_TRUE(settings.store(limitField(), QStringLiteral("300")));
        EXPECT_TRUE(settings.store(alertsField(), QStringLiteral("never")));
        EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 300);
    }
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 300);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), QStringLiteral("never"));
}

TEST_F(SettingsTest, RefuseToStoreWhatTheFieldDoesNotAllow)
{
    Settings settings(folder());
    EXPECT_FALSE(settings.store(limitField(), QStringLiteral("301")));
    EXPECT_FALSE(settings.store(alertsField(), QStringLiteral("loud")));
    EXPECT_FALSE(settings.store(ZepaField(), QStringLiteral("x")));
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
        const ZepaField theme = ZepaField::comboBox({}, QStringLiteral("sound_theme"), {QStringLiteral("default")}, {},
                                                    QStringLiteral("default"), {});
        EXPECT_EQ(settings.readGlobalSetting(theme).getSelectedId(), QStringLiteral("default")) << value.constData();
    }
}

TEST_F(SettingsTest, HandOnAChoiceForAlertsThatNobodyOffersAsItIsStored)
{
    for (const QString& value : {QStringLiteral("sometimes"), QStringLiteral("Always"), QStringLiteral("")}) {
        write("[General]\nalerts=" + value.toUtf8() + '\n');
        const Settings settings(folder());
        const ZepaField field = settings.readGlobalSetting(alertsField());
        EXPECT_EQ(field.getSelectedId(), value);
        EXPECT_EQ(field.getItemIds(), alertsField().getItemIds());
    }
    // A field of another type has no choice to hand on.
    write("[General]\nalerts=sometimes\n");
    const Settings settings(folder());
    const ZepaField box = ZepaField::checkBox({}, QStringLiteral("alerts"), true, {}, {});
    EXPECT_EQ(settings.readGlobalSetting(box).getText(), QStringLiteral("true"));
}

TEST_F(SettingsTest, ReadWhatAPersonWrote)
{
    write("; mine\nduplicated_notifications_time = 17\r\nalerts=\"always\"\n\n[other]\nalerts=never\n");
    const Settings settings(folder());
    EXPECT_EQ(settings.readGlobalSetting(limitField()).getIntValue(), 17);
    EXPECT_EQ(settings.readGlobalSetting(alertsField()).getSelectedId(), QStringLiteral("always"));
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
        ASSERT_TRUE(settings.store(limitField(), QStringLiteral("8")));
    }
    QFile file(folder() + QStringLiteral("/settings.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("chat=12")) << content.constData();
    EXPECT_TRUE(content.contains("duplicated_notifications_time=8")) << content.constData();
}

TEST_F(SettingsTest, AnswerFromMemory)
{
    write("[General]\nduplicated_notifications_time=17\n");
    const Settings settings(folder());
    ASSERT_TRUE(QFile::remove(folder() + QStringLiteral("/settings.ini")));
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
    EXPECT_EQ(ids, QStringList({QStringLiteral("duplicated_notifications_time"), QStringLiteral("alerts"),
                                QStringLiteral("icon_theme"), QStringLiteral("roster_theme"),
                                QStringLiteral("sound_theme")}));
    EXPECT_EQ(zepa::globalSettings().at(0).getIntValue(), 5);
    EXPECT_EQ(zepa::globalSettings().at(0).getUpperBound(), 300);
    EXPECT_EQ(zepa::globalSettings().at(1).getSelectedId(), QStringLiteral("buddies_only"));
}

TEST(BaseFolders, FollowTheirVariables)
{
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    qputenv("XDG_DATA_HOME", "/somewhere/data/");
    EXPECT_EQ(zepa::configFolder(), QStringLiteral("/somewhere/config/zepa/"));
    EXPECT_EQ(zepa::dataFolder(), QStringLiteral("/somewhere/data/zepa/"));
}

TEST(BaseFolders, HaveTheirDefaultsWhereAVariableIsUnsetEmptyOrRelative)
{
    const QString home = QDir::homePath();
    for (const char* value : {"", "config", "./config"}) {
        qputenv("XDG_CONFIG_HOME", value);
        qputenv("XDG_DATA_HOME", value);
        EXPECT_EQ(zepa::configFolder(), home + QStringLiteral("/.config/zepa/"));
        EXPECT_EQ(zepa::dataFolder(), home + QStringLiteral("/.local/share/zepa/"));
    }
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(zepa::configFolder(), home + QStringLiteral("/.config/zepa/"));
}

} // namespace
