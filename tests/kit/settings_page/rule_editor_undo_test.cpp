// SPDX-License-Identifier: Apache-2.0
#include "real_client.h"

#include "kit/settings/global_settings.h"
#include "qt_printers.h"

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

using RuleEditorUndo = RealClient;

ZepaField repeats()
{
    return globalSettings().constFirst();
}

} // namespace

TEST_F(RuleEditorUndo, SaysWhatItWouldTakeBack)
{
    EXPECT_EQ(editor->undoText(), QString());
    editor->add(typing, popup);
    EXPECT_EQ(editor->undoText(), u"Add: Typing started, Pop-up"_s);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    EXPECT_EQ(editor->undoText(), u"Change: Typing started, Pop-up, Sticky"_s);
    editor->changeSetting(repeats(), u"30"_s);
    EXPECT_EQ(editor->undoText(), u"Change: Drop repeats for"_s);
    editor->undo();
    EXPECT_EQ(editor->redoText(), u"Change: Drop repeats for"_s);
}

TEST_F(RuleEditorUndo, TakesSeveralStepsBackInMemoryAndOnDisk)
{
    editor->add(typing, popup);
    editor->changeSetting(repeats(), u"30"_s);
    editor->add(typing, sound);
    editor->change(typing, sound, 0, u"sound_file"_s, u"mail.wav"_s);
    for (int i = 0; i < 4; ++i)
        editor->undo();
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(editor->undoText(), QString());
    EXPECT_EQ(editor->setting(repeats()).getText(), u"5"_s);
    EXPECT_EQ(rulesAfterRestart(typing), QStringList());
    EXPECT_EQ(editor->setting(repeats()).getText(), u"5"_s);
}

TEST_F(RuleEditorUndo, DoesAgainWhatWasUndone)
{
    editor->add(typing, popup);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    const QByteArray file = stored(typing);
    editor->undo();
    editor->undo();
    EXPECT_NE(stored(typing), file);
    editor->redo();
    editor->redo();
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=true"_s});
    EXPECT_EQ(stored(typing), file);
    EXPECT_EQ(editor->redoText(), QString());
}

// A rule that is added again goes in front of the others; the order must come back all the same.
TEST_F(RuleEditorUndo, BringsTheOrderOfTheRulesBack)
{
    editor->add(typing, chat);
    editor->add(typing, popup);
    editor->add(typing, sound);
    editor->add(typing, popup);
    editor->change(typing, popup, 0, u"sticky"_s, u"true"_s);
    const QStringList before = rules(typing);
    const QByteArray file = stored(typing);
    for (const auto& [method, index] : {std::pair{chat, 0}, std::pair{popup, 1}, std::pair{popup, 0}}) {
        editor->remove(typing, method, index);
        EXPECT_NE(rules(typing), before);
        editor->undo();
        EXPECT_EQ(rules(typing), before);
        EXPECT_EQ(stored(typing), file);
    }
}

TEST_F(RuleEditorUndo, TakesRestoredDefaultsBack)
{
    editor->remove(message, sound);
    editor->add(message, chat);
    const QStringList before = rules(message);
    editor->restoreDefaults(message);
    EXPECT_EQ(editor->undoText(), u"Restore defaults: Message received"_s);
    EXPECT_NE(rules(message), before);
    editor->undo();
    EXPECT_EQ(rules(message), before);
}

TEST_F(RuleEditorUndo, TouchesNoRuleThatStandsRight)
{
    editor->add(typing, chat);
    editor->add(typing, popup);
    const ZepaNotificationRule* older = client->module().getNotificationRule(typing, chat);
    editor->add(typing, sound);
    editor->undo();
    EXPECT_EQ(client->module().getNotificationRule(typing, chat), older);
}

TEST_F(RuleEditorUndo, ForgetsStepsAboutATypeThatSomeoneElseChanged)
{
    editor->add(typing, popup);
    editor->add(message, chat);
    QList<ZepaField> config;
    client->module().addNotificationRule(typing, sound, config);
    editor->undo();
    EXPECT_FALSE(client->module().getNotificationRule(message, chat));
    EXPECT_EQ(editor->undoText(), QString());
    EXPECT_EQ(rules(typing).size(), 2);
}

TEST_F(RuleEditorUndo, NeverUndoesOverAChangeThatItHasNotSeenYet)
{
    editor->add(typing, popup);
    QList<ZepaField> config;
    client->module().addNotificationRule(typing, sound, config);
    editor->undo();
    EXPECT_EQ(rules(typing).size(), 2);
}
