// SPDX-License-Identifier: Apache-2.0
#include "real_client.h"

#include "client/services/global_settings.h"
#include "qt_printers.h"

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
    EXPECT_EQ(editor->undoText(), QStringLiteral("Add: Typing started, Pop-up"));
    editor->change(typing, popup, 0, QStringLiteral("sticky"), QStringLiteral("true"));
    EXPECT_EQ(editor->undoText(), QStringLiteral("Change: Typing started, Pop-up, Sticky"));
    editor->changeSetting(repeats(), QStringLiteral("30"));
    EXPECT_EQ(editor->undoText(), QStringLiteral("Change: Drop repeats for"));
    editor->undo();
    EXPECT_EQ(editor->redoText(), QStringLiteral("Change: Drop repeats for"));
}

TEST_F(RuleEditorUndo, TakesSeveralStepsBackInMemoryAndOnDisk)
{
    editor->add(typing, popup);
    editor->changeSetting(repeats(), QStringLiteral("30"));
    editor->add(typing, sound);
    editor->change(typing, sound, 0, QStringLiteral("sound_file"), QStringLiteral("mail.wav"));
    for (int i = 0; i < 4; ++i)
        editor->undo();
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(editor->undoText(), QString());
    EXPECT_EQ(editor->setting(repeats()).getText(), QStringLiteral("5"));
    EXPECT_EQ(rulesAfterRestart(typing), QStringList());
    EXPECT_EQ(editor->setting(repeats()).getText(), QStringLiteral("5"));
}

TEST_F(RuleEditorUndo, DoesAgainWhatWasUndone)
{
    editor->add(typing, popup);
    editor->change(typing, popup, 0, QStringLiteral("sticky"), QStringLiteral("true"));
    const QByteArray file = stored(typing);
    editor->undo();
    editor->undo();
    EXPECT_NE(stored(typing), file);
    editor->redo();
    editor->redo();
    EXPECT_EQ(rules(typing), QStringList{QStringLiteral("zepa_hint_notification sticky=true")});
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
    editor->change(typing, popup, 0, QStringLiteral("sticky"), QStringLiteral("true"));
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
    EXPECT_EQ(editor->undoText(), QStringLiteral("Restore defaults: Message received"));
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
