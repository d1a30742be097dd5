// SPDX-License-Identifier: Apache-2.0
// What a client with a window does while another one works on its files, and with what that one stored.
#include "real_client.h"

#include "kit/files/file_lock.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/type_ids.h"
#include "kit/settings/global_settings.h"
#include "qt_printers.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

class RuleWaiting : public RealClient
{
protected:
    void beginToWorkElsewhere()
    {
        elsewhere.emplace(client->ruleBackup().ruleFolder());
        ASSERT_TRUE(elsewhere->tryNow());
    }
    void storeElsewhere(const QString& type, const QByteArray& content) const
    {
        QFile file(ruleFile(type));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void beginToChangeSettingsElsewhere()
    {
        settingsElsewhere.emplace(folder.filePath(u"settings.lock"_s));
        ASSERT_TRUE(settingsElsewhere->isHeld());
    }
    QString limit() const { return editor->setting(repeats).getText(); }
    QByteArray storedSettings() const { return stored(u"../settings.ini"_s); }

    const ZepaField repeats = globalSettings().constFirst();
    std::optional<RuleLock> elsewhere;
    std::optional<FileLock> settingsElsewhere;
};

} // namespace

TEST_F(RuleWaiting, ChangesAreMadeInTheirOrderWhenItIsDone)
{
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    beginToWorkElsewhere();
    editor->toggle(typing, popup);
    editor->add(typing, sound);
    editor->undo();
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(editor->problem(), QString());
    elsewhere.reset();
    while (changed.count() < 3)
        ASSERT_TRUE(changed.wait());
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
    EXPECT_EQ(rulesAfterRestart(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
}

TEST_F(RuleWaiting, ChangesAreRefusedWithASentenceWhenItTakesTooLong)
{
    QSignalSpy problem(editor.get(), &RuleEditor::problemChanged);
    beginToWorkElsewhere();
    editor->toggle(typing, popup);
    editor->toggle(message, popup);
    const QStringList before = rules(message);
    while (problem.isEmpty())
        ASSERT_TRUE(problem.wait());
    EXPECT_TRUE(editor->problem().contains(u"another program"_s)) << editor->problem().toStdString();
    EXPECT_FALSE(editor->canRetry());
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(rules(message), before);
    elsewhere.reset();
    // The one that waited in vain may have its turn first.
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    editor->toggle(typing, popup);
    ASSERT_TRUE(!changed.isEmpty() || changed.wait());
    EXPECT_EQ(editor->problem(), QString());
    EXPECT_EQ(rules(typing).size(), 1);
}

TEST_F(RuleWaiting, AChangeReachesTheRuleThatWasMeant)
{
    editor->add(typing, sound);
    editor->change(typing, sound, 0, u"sound_file"_s, u"mine.wav"_s);
    const QByteArray one = stored(typing);
    beginToWorkElsewhere();
    editor->remove(typing, sound, 0);
    // Another rule stands in its place now.
    storeElsewhere(typing, QByteArray(one).replace("mine.wav", "theirs.wav"));
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    elsewhere.reset();
    ASSERT_TRUE(!changed.isEmpty() || changed.wait());
    EXPECT_EQ(rules(typing), QStringList{u"zepa_sound_notification_method sound_file=theirs.wav"_s});
    EXPECT_TRUE(stored(typing).contains("theirs.wav"));
}

TEST_F(RuleWaiting, WhatAnotherClientStoredIsSeen)
{
    editor->add(typing, sound);
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    storeElsewhere(typing, QByteArray(stored(typing)).replace("bell.wav", "theirs.wav"));
    editor->refresh();
    EXPECT_EQ(changed, QList<QVariantList>{{typing}});
    EXPECT_EQ(rules(typing), QStringList{u"zepa_sound_notification_method sound_file=theirs.wav"_s});
}

TEST_F(RuleWaiting, ASettingIsStoredWhenItsFileIsFree)
{
    QSignalSpy changed(editor.get(), &RuleEditor::settingChanged);
    beginToChangeSettingsElsewhere();
    editor->changeSetting(repeats, u"30"_s);
    EXPECT_EQ(limit(), u"5"_s);
    EXPECT_EQ(editor->problem(), QString());
    settingsElsewhere.reset();
    ASSERT_TRUE(!changed.isEmpty() || changed.wait());
    EXPECT_EQ(limit(), u"30"_s);
    EXPECT_EQ(editor->undoText(), u"Change: Drop repeats for"_s);
    EXPECT_TRUE(storedSettings().contains("duplicated_notifications_time=30"));
}

TEST_F(RuleWaiting, ChangesAfterASettingThatWaitsAreMadeAfterIt)
{
    QSignalSpy rule(editor.get(), &RuleEditor::rulesChanged);
    QSignalSpy setting(editor.get(), &RuleEditor::settingChanged);
    QSignalSpy said(editor.get(), &RuleEditor::said);
    const ZepaField alerts = globalSettings().at(1);
    beginToChangeSettingsElsewhere();
    editor->changeSetting(alerts, u"never"_s);
    editor->changeSetting(alerts, u"always"_s);
    editor->toggle(typing, popup);
    editor->undo();
    editor->undo();
    // The first is tried again while all of them wait.
    QTest::qWait(100);
    EXPECT_TRUE(rule.isEmpty());
    settingsElsewhere.reset();
    while (said.count() < 2)
        ASSERT_TRUE(said.wait());
    EXPECT_EQ(setting.count(), 3);
    EXPECT_EQ(rule.count(), 2);
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_EQ(editor->setting(alerts).getText(), u"never"_s);
    EXPECT_TRUE(storedSettings().contains("alerts=never"));
}

TEST_F(RuleWaiting, ASettingIsRefusedWithASentenceWhenItsFileStaysBusy)
{
    QSignalSpy problem(editor.get(), &RuleEditor::problemChanged);
    editor->changeSetting(repeats, u"30"_s);
    problem.clear();
    beginToChangeSettingsElsewhere();
    editor->changeSetting(repeats, u"40"_s);
    while (problem.isEmpty())
        ASSERT_TRUE(problem.wait());
    EXPECT_TRUE(editor->problem().contains(u"another program"_s)) << editor->problem().toStdString();
    EXPECT_TRUE(editor->problem().contains(u"settings.ini"_s)) << editor->problem().toStdString();
    EXPECT_EQ(limit(), u"30"_s);
    problem.clear();
    editor->undo();
    while (problem.isEmpty())
        ASSERT_TRUE(problem.wait());
    EXPECT_EQ(limit(), u"30"_s);
    settingsElsewhere.reset();
    editor->undo();
    EXPECT_EQ(limit(), u"5"_s);
    EXPECT_EQ(editor->problem(), QString());
}

TEST_F(RuleWaiting, ASettingDoesNotNeedTheRuleFiles)
{
    QSignalSpy changed(editor.get(), &RuleEditor::settingChanged);
    beginToWorkElsewhere();
    editor->changeSetting(repeats, u"30"_s);
    while (changed.isEmpty())
        ASSERT_TRUE(changed.wait());
    EXPECT_EQ(limit(), u"30"_s);
    EXPECT_EQ(editor->problem(), QString());
}

TEST_F(RuleWaiting, AStartWaitsWithoutBlocking)
{
    editor.reset();
    client.reset();
    elsewhere.emplace(folder.filePath(u"notifications"_s));
    ASSERT_TRUE(elsewhere->tryNow());
    client = std::make_unique<Client>(folder.path(), Client::Start::Later);
    QObject context;
    auto gone = std::make_unique<QObject>();
    QEventLoop loop;
    QStringList calls;
    client->whenStarted(&context, [&] { calls.append(u"first"_s); });
    client->whenStarted(gone.get(), [&] { calls.append(u"gone"_s); });
    client->whenStarted(&context, [&] {
        calls.append(u"last"_s);
        loop.quit();
    });
    gone.reset();
    EXPECT_FALSE(client->hasStarted());
    EXPECT_FALSE(client->start());
    EXPECT_EQ(calls, QStringList());
    elsewhere.reset();
    loop.exec();
    EXPECT_TRUE(client->hasStarted());
    EXPECT_EQ(calls, (QStringList{u"first"_s, u"last"_s}));
    EXPECT_EQ(client->module().getNotifications().size(), 18);
}

TEST_F(RuleWaiting, AFirstStartProtectsTheDefaultsThatItWrites)
{
    const QDir rules(folder.filePath(u"notifications"_s));
    const QDir copies(folder.filePath(u"rules-backup/copies"_s));
    EXPECT_GT(rules.entryList(QDir::Files).size(), 10);
    EXPECT_EQ(copies.entryList(QDir::Files), rules.entryList(QDir::Files));
}

TEST_F(RuleWaiting, TheNamesOfRuleFilesAreThoseOfTheModulesTypes)
{
    EXPECT_EQ(sorted(builtInTypes()), sorted(client->module().getNotifications().keys()));
}
