// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/sound_notification_method.h"
#include "module_test.h"

namespace {

const QString alert = QStringLiteral("alert_received_notify");

class Sound : public ModuleTest
{
protected:
    static ZepaArg sender(int type)
    {
        return ZepaArg::fromBuddy(ZepaBuddy(QStringLiteral("ann@example.org"), QStringLiteral("Ann"), type));
    }
    static ZepaField file(const QString& path) { return ProbeMethod::text(QStringLiteral("sound_file"), path); }
    /// What is played for one posting; an empty list for silence.
    QStringList played(const QString& id, const QList<ZepaField>& config, const QList<ZepaArg>& args = {})
    {
        ZepaNotification notification(id, id, QString(), QString());
        host.played.clear();
        method.postNotification(0, &notification, QStringLiteral("title"), QStringLiteral("text"), QString(), QString(),
                                config, ZepaPluginAction(), args);
        return host.played;
    }
    QStringList playedForAlert(const QList<ZepaArg>& args)
    {
        return played(alert, {file(QStringLiteral("/x.wav"))}, args);
    }

    ZepaSoundNotificationMethod method;
    const QStringList silence;
    const QStringList sound{QStringLiteral("/x.wav")};
};

} // namespace

TEST_F(Sound, NeverPlaysAnAlertWhenTheUserChoseNever)
{
    host.alerts = QStringLiteral("never");
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), silence);
    EXPECT_EQ(playedForAlert({sender(4)}), silence);
}

TEST_F(Sound, AlwaysPlaysAnAlertWhenTheUserChoseAlways)
{
    host.alerts = QStringLiteral("always");
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), sound);
    EXPECT_EQ(playedForAlert({sender(4)}), sound);
    EXPECT_EQ(playedForAlert({}), sound);
}

TEST_F(Sound, PlaysAnAlertFromTheContactListAloneWhenTheUserChoseSoOrNothing)
{
    for (const QString& choice : {QString(), QStringLiteral("buddies_only")}) {
        host.alerts = choice;
        EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), sound);
        EXPECT_EQ(playedForAlert({sender(0)}), sound);
        EXPECT_EQ(playedForAlert({sender(5)}), sound);
        EXPECT_EQ(playedForAlert({sender(4)}), silence);
    }
}

TEST_F(Sound, NeverPlaysAnAlertWhenTheStoredChoiceIsNoneOfTheThree)
{
    for (const QString& choice : {QStringLiteral("sometimes"), QStringLiteral(""), QStringLiteral("Always")}) {
        host.alerts = choice;
        EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), silence) << choice.toStdString();
    }
    host.alerts = QStringLiteral("always");
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), sound);
}

TEST_F(Sound, TakesAnAlertWithoutASenderForOneFromOutsideTheContactList)
{
    EXPECT_EQ(playedForAlert({}), silence);
}

TEST_F(Sound, LooksAtTheFirstArgumentAlone)
{
    EXPECT_EQ(playedForAlert({sender(4), sender(ZepaBuddy::Contact)}), silence);
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact), sender(4)}), sound);
}

TEST_F(Sound, TakesTheFirstArgumentForASenderWhateverItsTypeIs)
{
    // A text has no sender, and what stands for none is not one from outside the contact list.
    ASSERT_NE(ZepaArg::fromText(alert).toBuddy().getType(), 4);
    EXPECT_EQ(playedForAlert({ZepaArg::fromText(alert), sender(4)}), sound);
    EXPECT_EQ(playedForAlert({ZepaArg(), sender(4)}), sound);
}

TEST_F(Sound, DescribesItsSettingsWithEmptyTextsAndNotWithNullOnes)
{
    const QString explanation = method.fields.first().getDescription();
    EXPECT_TRUE(explanation.isEmpty() && !explanation.isNull());
    playedForAlert({});
    const ZepaField alerts = host.settingsRead.first();
    EXPECT_TRUE(alerts.getLabel().isEmpty() && !alerts.getLabel().isNull());
    EXPECT_TRUE(alerts.getDescription().isEmpty() && !alerts.getDescription().isNull());
}

TEST_F(Sound, HandsAPathOnWhateverItLeadsTo)
{
    const QString missing = host.settings.filePath(QStringLiteral("missing.wav"));
    for (const QString& path : {missing, host.settings.path()})
        EXPECT_EQ(played(QStringLiteral("event"), {file(path)}), QStringList({path}));
}

TEST_F(Sound, DescribesTheAlertsSettingByItsThreeChoices)
{
    playedForAlert({});
    ASSERT_EQ(host.settingsRead.size(), 1);
    const ZepaField field = host.settingsRead.first();
    EXPECT_EQ(field.getType(), ZepaField::ComboBox);
    EXPECT_EQ(field.getId(), QStringLiteral("alerts"));
    EXPECT_TRUE(field.getLabel().isEmpty());
    EXPECT_EQ(field.getItemIds(),
              QStringList({QStringLiteral("never"), QStringLiteral("always"), QStringLiteral("buddies_only")}));
    EXPECT_EQ(field.getItemLabels(), QStringList({QStringLiteral("Mute"), QStringLiteral("Notify always"),
                                                  QStringLiteral("Notify from buddies only")}));
    EXPECT_EQ(field.getSelectedId(), QStringLiteral("buddies_only"));
}

TEST_F(Sound, PlaysEveryOtherEventWhateverTheUserChoseForAlerts)
{
    host.alerts = QStringLiteral("never");
    for (const char* id : {"message_received", "alert_sent_notify", "Alert_received_notify", "alert_received_notify "})
        EXPECT_EQ(played(QString::fromLatin1(id), {file(QStringLiteral("/x.wav"))}), sound) << id;
    EXPECT_TRUE(host.settingsRead.isEmpty());
}

TEST_F(Sound, PlaysTheTextOfTheFirstFieldWhateverItsIdentifier)
{
    EXPECT_EQ(played(QStringLiteral("event"), {ProbeMethod::text(QStringLiteral("other"), QStringLiteral("/o.wav")),
                                               file(QStringLiteral("/x.wav"))}),
              QStringList({QStringLiteral("/o.wav")}));
}

TEST_F(Sound, PutsTheThemesFolderBeforeARelativeFileWithoutASeparatorOfItsOwn)
{
    host.soundThemeDir = QStringLiteral("/themes/a/");
    EXPECT_EQ(played(QStringLiteral("event"), {file(QStringLiteral("message.wav"))}),
              QStringList({QStringLiteral("/themes/a/message.wav")}));
    host.soundThemeDir = QStringLiteral("/themes/a");
    EXPECT_EQ(played(QStringLiteral("event"), {file(QStringLiteral("message.wav"))}),
              QStringList({QStringLiteral("/themes/amessage.wav")}));
}

TEST_F(Sound, PlaysAnAbsoluteFileAsItStands)
{
    EXPECT_EQ(played(QStringLiteral("event"), {file(QStringLiteral("/Users/x/ding.aiff"))}),
              QStringList({QStringLiteral("/Users/x/ding.aiff")}));
}

TEST_F(Sound, HandsTheThemesFolderOnForAnEmptyFile)
{
    EXPECT_EQ(played(QStringLiteral("event"), {file(QStringLiteral(""))}), QStringList({QStringLiteral("/themes/a/")}));
}

TEST_F(Sound, IsSilentForARuleWithoutFields)
{
    EXPECT_EQ(played(QStringLiteral("event"), {}), silence);
    host.alerts = QStringLiteral("always");
    EXPECT_EQ(played(alert, {}, {sender(ZepaBuddy::Contact)}), silence);
    // The user's choice comes first.
    EXPECT_EQ(host.settingsRead.size(), 1);
}

TEST_F(Sound, OffersOneFieldWithTheBell)
{
    ASSERT_EQ(method.fields.size(), 1);
    const ZepaField field = method.fields.first();
    EXPECT_EQ(field.getType(), ZepaField::SoundEdit);
    EXPECT_EQ(field.getId(), QStringLiteral("sound_file"));
    EXPECT_EQ(field.getLabel(), QStringLiteral("sound file"));
    EXPECT_EQ(field.getText(), QStringLiteral("bell.wav"));
}

TEST_F(Sound, HasADefaultFileForNineTypesAndNoDefaultForOthers)
{
    const QList<std::pair<const char*, const char*>> table{{"alert_received_notify", "bell.wav"},
                                                           {"email_notify", "mail.wav"},
                                                           {"buddy_connected", "online.wav"},
                                                           {"message_received", "message.wav"},
                                                           {"message_received_initial", "message.wav"},
                                                           {"message_received_background", "message.wav"},
                                                           {"info_notify", "file.wav"},
                                                           {"error_notify", "file.wav"},
                                                           {"logged_in", "login.wav"}};
    for (const auto& [id, name] : table) {
        const QList<ZepaField> config = method.getDefaultNotificationConfig(QString::fromLatin1(id));
        ASSERT_EQ(config.size(), 1) << id;
        EXPECT_EQ(config.first().getId(), QStringLiteral("sound_file")) << id;
        EXPECT_EQ(config.first().getText(), QString::fromLatin1(name)) << id;
    }
    for (const char* id : {"message_sent", "buddy_went_away", "typing_started_notify", "alert_sent_notify"})
        EXPECT_EQ(method.getDefaultNotificationConfig(QString::fromLatin1(id)).first().getType(), 0) << id;
}

TEST_F(Sound, NamesTheMethodAndBringsASeparatorForItsPicture)
{
    EXPECT_EQ(method.getId(), QStringLiteral("zepa_sound_notification_method"));
    EXPECT_EQ(method.getActionName(), QStringLiteral("play sound"));
    EXPECT_EQ(method.getActionIcon(), QStringLiteral("/themes/general//icons/speaker.png"));
}

TEST_F(Sound, IsHeardForAPostingThroughTheModule)
{
    module();
    ZepaNotificationModule::init();
    post(QStringLiteral("message_received"), QStringLiteral("title"));
    EXPECT_EQ(host.played, QStringList({QStringLiteral("/themes/a/message.wav")}));
}

TEST_F(Sound, TranslatesItsTextsUnderTheirContextsAndComments)
{
    const MarkingTranslator::Installed translator;
    const ZepaSoundNotificationMethod translated;
    EXPECT_EQ(translated.getActionName(), QStringLiteral("play sound|translation|nc"));
    EXPECT_EQ(translated.fields.first().getLabel(), QStringLiteral("sound file|translation|nc"));
    playedForAlert({});
    EXPECT_EQ(
        host.settingsRead.first().getItemLabels(),
        QStringList({QStringLiteral("Mute|translation|turn off all"),
                     QStringLiteral("Notify always|translation|turn on all"),
                     QStringLiteral("Notify from buddies only|translation|turn on only from contacts at my list")}));
}
