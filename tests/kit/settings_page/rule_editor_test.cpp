// SPDX-License-Identifier: Apache-2.0
// What the model of the settings window does to rules and settings, with the real module and real files.
#include "real_client.h"

#include "kit/settings/global_settings.h"
#include "qt_printers.h"

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

class RuleEditorTest : public RealClient
{
protected:
    static ZepaField globalField(const QString& id)
    {
        const QList<ZepaField> all = globalSettings();
        for (const ZepaField& field : all) {
            if (field.getId() == id)
                return field;
        }
        return {};
    }
};

const QString repeats = u"duplicated_notifications_time"_s;

} // namespace

TEST_F(RuleEditorTest, AddsTheMethodsDefaultForTheType)
{
    editor->remove(u"email_notify"_s, sound);
    editor->add(u"email_notify"_s, sound);
    EXPECT_EQ(rules(u"email_notify"_s).constFirst(), u"zepa_sound_notification_method sound_file=mail.wav"_s);
}

TEST_F(RuleEditorTest, AddsAMethodWithoutADefaultForTheTypeWithItsInitialValues)
{
    editor->add(typing, sound);
    EXPECT_EQ(rules(typing), QStringList{u"zepa_sound_notification_method sound_file=bell.wav"_s});
}

TEST_F(RuleEditorTest, TogglesARuleOnAndOffAgain)
{
    editor->toggle(typing, popup);
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
    editor->toggle(typing, popup);
    EXPECT_EQ(rules(typing), QStringList());
}

TEST_F(RuleEditorTest, TogglingAPairWithTwoRulesRemovesTheNewest)
{
    editor->add(typing, popup);
    editor->add(typing, popup);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    editor->toggle(typing, popup);
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
}

TEST_F(RuleEditorTest, KeepsEachChangeForTheNextStart)
{
    editor->add(typing, popup);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    EXPECT_EQ(rulesAfterRestart(typing), QStringList{u"zepa_hint_notification sticky=true"_s});
    editor->remove(typing, popup);
    EXPECT_EQ(rulesAfterRestart(typing), QStringList());
}

TEST_F(RuleEditorTest, ChangesTheOlderOfTwoRulesAndLeavesTheNewerWhereItIs)
{
    editor->add(typing, popup);
    editor->add(typing, sound);
    editor->add(typing, popup);
    editor->change(typing, popup, 1, u"sticky"_s, u"true"_s);
    EXPECT_EQ(rules(typing), (QStringList{u"zepa_hint_notification sticky=false"_s,
                                          u"zepa_sound_notification_method sound_file=bell.wav"_s,
                                          u"zepa_hint_notification sticky=true"_s}));
}

TEST_F(RuleEditorTest, RemovesTheOlderOfTwoRules)
{
    editor->add(typing, popup);
    editor->add(typing, popup);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    editor->remove(typing, popup, 1);
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=true"_s});
}

TEST_F(RuleEditorTest, RefusesAValueThatTheFieldDoesNotAllow)
{
    editor->add(typing, popup);
    const QByteArray before = stored(typing);
    editor->change(typing, popup, 0, u"sticky"_s, u"perhaps"_s);
    editor->changeSetting(globalField(repeats), u"301"_s);
    EXPECT_EQ(stored(typing), before);
    EXPECT_EQ(editor->setting(globalField(repeats)).getText(), u"5"_s);
    EXPECT_EQ(editor->undoText(), u"Add: Typing started, Pop-up"_s);
}

TEST_F(RuleEditorTest, IgnoresTypesAndMethodsThatAreNotThere)
{
    QSignalSpy history(editor.get(), &RuleEditor::historyChanged);
    editor->toggle(u"nobody"_s, popup);
    editor->toggle(typing, u"nobody"_s);
    editor->remove(typing, popup, 3);
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(history.count(), 0);
    EXPECT_FALSE(QFile::exists(ruleFile(u"nobody"_s)));
}

TEST_F(RuleEditorTest, RestoresTheDefaultsOfOneType)
{
    const QStringList atFirst = sorted(rules(message));
    ASSERT_FALSE(atFirst.isEmpty());
    EXPECT_TRUE(editor->hasDefaults(message));
    editor->toggle(message, popup);
    editor->change(message, sound, 0, u"sound_file"_s, u"bell.wav"_s);
    editor->add(typing, popup);
    EXPECT_FALSE(editor->hasDefaults(message));
    editor->restoreDefaults(message);
    EXPECT_EQ(sorted(rules(message)), atFirst);
    EXPECT_TRUE(editor->hasDefaults(message));
    EXPECT_EQ(rules(typing).size(), 1);
    EXPECT_EQ(rulesAfterRestart(message), atFirst);
}

TEST_F(RuleEditorTest, RestoringDefaultsThatAreThereIsNoStep)
{
    editor->restoreDefaults(message);
    EXPECT_EQ(editor->undoText(), QString());
}

TEST_F(RuleEditorTest, ChangesASettingOfTheWholeClientOnDisk)
{
    QSignalSpy changed(editor.get(), &RuleEditor::settingChanged);
    editor->changeSetting(globalField(repeats), u"30"_s);
    EXPECT_EQ(changed, QList<QVariantList>{{repeats}});
    restart();
    EXPECT_EQ(editor->setting(globalField(repeats)).getIntValue(), 30);
}

TEST_F(RuleEditorTest, TellsWhichTypeChanged)
{
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    editor->add(typing, popup);
    EXPECT_EQ(changed, QList<QVariantList>{{typing}});
}

TEST_F(RuleEditorTest, SeesChangesThatSomeoneElseMade)
{
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    QSignalSpy setting(editor.get(), &RuleEditor::settingChanged);
    QList<ZepaField> config;
    client->module().addNotificationRule(typing, popup, config);
    client->settings().store(globalField(repeats), u"9"_s);
    editor->refresh();
    EXPECT_EQ(changed, QList<QVariantList>{{typing}});
    EXPECT_EQ(setting, QList<QVariantList>{{repeats}});
    editor->refresh();
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(RuleEditorTest, SeesATypeThatWasRegisteredLater)
{
    QSignalSpy table(editor.get(), &RuleEditor::tableChanged);
    client->module().registerNotification(u"lunch"_s, u"Lunch"_s, {}, {});
    editor->refresh();
    EXPECT_EQ(table.count(), 1);
    editor->add(u"lunch"_s, popup);
    EXPECT_EQ(rules(u"lunch"_s).size(), 1);
}
