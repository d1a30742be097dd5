// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/sound_notification_method.h"
#include "module_test.h"

using namespace Qt::StringLiterals;

namespace {

const QString alert = u"alert_received_notify"_s;

class Sound : public ModuleTest
{
protected:
    static ZepaArg sender(int type) { return ZepaArg::fromBuddy(ZepaBuddy(u"ann@example.org"_s, u"Ann"_s, type)); }
    static ZepaField file(const QString& path) { return ProbeMethod::text(u"sound_file"_s, path); }
    /// What is played for one posting; an empty list for silence.
    QStringList played(const QString& id, const QList<ZepaField>& config, const QList<ZepaArg>& args = {})
    {
        ZepaNotification notification(id, id, QString(), QString());
        host.played.clear();
        method.postNotification(0, &notification, u"title"_s, u"text"_s, QString(), QString(), config,
                                ZepaPluginAction(), args);
        return host.played;
    }
    QStringList playedForAlert(const QList<ZepaArg>& args) { return played(alert, {file(u"/x.wav"_s)}, args); }

    ZepaSoundNotificationMethod method;
    const QStringList silence;
    const QStringList sound{u"/x.wav"_s};
};

} // namespace

TEST_F(Sound, NeverPlaysAnAlertWhenTheUserChoseNever)
{
    host.alerts = u"never"_s;
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), silence);
    EXPECT_EQ(playedForAlert({sender(4)}), silence);
}

TEST_F(Sound, AlwaysPlaysAnAlertWhenTheUserChoseAlways)
{
    host.alerts = u"always"_s;
    EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), sound);
    EXPECT_EQ(playedForAlert({sender(4)}), sound);
    EXPECT_EQ(playedForAlert({}), sound);
}

TEST_F(Sound, PlaysAnAlertFromTheContactListAloneWhenTheUserChoseSoOrNothing)
{
    for (const QString& choice : {QString(), u"buddies_only"_s}) {
        host.alerts = choice;
        EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), sound);
        EXPECT_EQ(playedForAlert({sender(0)}), sound);
        EXPECT_EQ(playedForAlert({sender(5)}), sound);
        EXPECT_EQ(playedForAlert({sender(4)}), silence);
    }
}

TEST_F(Sound, NeverPlaysAnAlertWhenTheStoredChoiceIsNoneOfTheThree)
{
    for (const QString& choice : {u"sometimes"_s, u""_s, u"Always"_s}) {
        host.alerts = choice;
        EXPECT_EQ(playedForAlert({sender(ZepaBuddy::Contact)}), silence) << choice.toStdString();
    }
    host.alerts = u"always"_s;
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
    const QString missing = host.settings.filePath(u"missing.wav"_s);
    for (const QString& path : {missing, host.settings.path()})
        EXPECT_EQ(played(u"event"_s, {file(path)}), QStringList({path}));
}

TEST_F(Sound, DescribesTheAlertsSettingByItsThreeChoices)
{
    playedForAlert({});
    ASSERT_EQ(host.settingsRead.size(), 1);
    const ZepaField field = host.settingsRead.first();
    EXPECT_EQ(field.getType(), ZepaField::ComboBox);
    EXPECT_EQ(field.getId(), u"alerts"_s);
    EXPECT_TRUE(field.getLabel().isEmpty());
    EXPECT_EQ(field.getItemIds(), QStringList({u"never"_s, u"always"_s, u"buddies_only"_s}));
    EXPECT_EQ(field.getItemLabels(), QStringList({u"Mute"_s, u"Notify always"_s, u"Notify from buddies only"_s}));
    EXPECT_EQ(field.getSelectedId(), u"buddies_only"_s);
}

TEST_F(Sound, PlaysEveryOtherEventWhateverTheUserChoseForAlerts)
{
    host.alerts = u"never"_s;
    for (const char* id : {"message_received", "alert_sent_notify", "Alert_received_notify", "alert_received_notify "})
        EXPECT_EQ(played(QString::fromLatin1(id), {file(u"/x.wav"_s)}), sound) << id;
    EXPECT_TRUE(host.settingsRead.isEmpty());
}

TEST_F(Sound, PlaysTheTextOfTheFirstFieldWhateverItsIdentifier)
{
    EXPECT_EQ(played(u"event"_s, {ProbeMethod::text(u"other"_s, u"/o.wav"_s), file(u"/x.wav"_s)}),
              QStringList({u"/o.wav"_s}));
}

TEST_F(Sound, PutsTheThemesFolderBeforeARelativeFileWithoutASeparatorOfItsOwn)
{
    host.soundThemeDir = u"/themes/a/"_s;
    EXPECT_EQ(played(u"event"_s, {file(u"message.wav"_s)}), QStringList({u"/themes/a/message.wav"_s}));
    host.soundThemeDir = u"/themes/a"_s;
    EXPECT_EQ(played(u"event"_s, {file(u"message.wav"_s)}), QStringList({u"/themes/amessage.wav"_s}));
}

TEST_F(Sound, PlaysAnAbsoluteFileAsItStands)
{
    EXPECT_EQ(played(u"event"_s, {file(u"/Users/x/ding.aiff"_s)}), QStringList({u"/Users/x/ding.aiff"_s}));
}

TEST_F(Sound, HandsTheThemesFolderOnForAnEmptyFile)
{
    EXPECT_EQ(played(u"event"_s, {file(u""_s)}), QStringList({u"/themes/a/"_s}));
}

TEST_F(Sound, IsSilentForARuleWithoutFields)
{
    EXPECT_EQ(played(u"event"_s, {}), silence);
    host.alerts = u"always"_s;
    EXPECT_EQ(played(alert, {}, {sender(ZepaBuddy::Contact)}), silence);
    // The user's choice comes first.
    EXPECT_EQ(host.settingsRead.size(), 1);
}

TEST_F(Sound, OffersOneFieldWithTheBell)
{
    ASSERT_EQ(method.fields.size(), 1);
    const ZepaField field = method.fields.first();
    EXPECT_EQ(field.getType(), ZepaField::SoundEdit);
    EXPECT_EQ(field.getId(), u"sound_file"_s);
    EXPECT_EQ(field.getLabel(), u"sound file"_s);
    EXPECT_EQ(field.getText(), u"bell.wav"_s);
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
        EXPECT_EQ(config.first().getId(), u"sound_file"_s) << id;
        EXPECT_EQ(config.first().getText(), QString::fromLatin1(name)) << id;
    }
    for (const char* id : {"message_sent", "buddy_went_away", "typing_started_notify", "alert_sent_notify"})
        EXPECT_EQ(method.getDefaultNotificationConfig(QString::fromLatin1(id)).first().getType(), 0) << id;
}

TEST_F(Sound, NamesTheMethodAndBringsASeparatorForItsPicture)
{
    EXPECT_EQ(method.getId(), u"zepa_sound_notification_method"_s);
    EXPECT_EQ(method.getActionName(), u"play sound"_s);
    EXPECT_EQ(method.getActionIcon(), u"/themes/general//icons/speaker.png"_s);
}

TEST_F(Sound, IsHeardForAPostingThroughTheModule)
{
    module();
    ZepaNotificationModule::init();
    post(u"message_received"_s, u"title"_s);
    EXPECT_EQ(host.played, QStringList({u"/themes/a/message.wav"_s}));
}

TEST_F(Sound, TranslatesItsTextsUnderTheirContextsAndComments)
{
    const MarkingTranslator::Installed translator;
    const ZepaSoundNotificationMethod translated;
    EXPECT_EQ(translated.getActionName(), u"play sound|translation|nc"_s);
    EXPECT_EQ(translated.fields.first().getLabel(), u"sound file|translation|nc"_s);
    playedForAlert({});
    EXPECT_EQ(host.settingsRead.first().getItemLabels(),
              QStringList({u"Mute|translation|turn off all"_s, u"Notify always|translation|turn on all"_s,
                           u"Notify from buddies only|translation|turn on only from contacts at my list"_s}));
}
