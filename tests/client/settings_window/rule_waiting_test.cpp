// SPDX-License-Identifier: Apache-2.0
// What a client with a window does while another one works on its files, and with what that one stored.
#include "real_client.h"

#include "client/files/file_lock.h"
#include "client/rules/rule_lock.h"
#include "client/rules/type_ids.h"
#include "client/services/global_settings.h"
#include "qt_printers.h"

#include <QTest>

#include <optional>

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
        settingsElsewhere.emplace(folder.filePath(QStringLiteral("settings.lock")));
        ASSERT_TRUE(settingsElsewhere->isHeld());
    }
    QString limit() const { return editor->setting(repeats).getText(); }
    QByteArray storedSettings() const { return stored(QStringLiteral("../settings.ini")); }

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
    EXPECT_EQ(rules(typing), QStringList{QStringLiteral("zepa_hint_notification sticky=false")});
    EXPECT_EQ(rulesAfterRestart(typing), QStringList{QStringLiteral("zepa_hint_notification sticky=false")});
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
    EXPECT_TRUE(editor->problem().contains(QStringLiteral("another program"))) << editor->problem().toStdString();
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
    editor->change(typing, sound, 0, QStringLiteral("sound_file"), QStringLiteral("mine.wav"));
    const QByteArray one = stored(typing);
    beginToWorkElsewhere();
    editor->remove(typing, sound, 0);
    // Another rule stands in its place now.
    storeElsewhere(typing, QByteArray(one).replace("mine.wav", "theirs.wav"));
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    elsewhere.reset();
    ASSERT_TRUE(!changed.isEmpty() || changed.wait());
    EXPECT_EQ(rules(typing), QStringList{QStringLiteral("zepa_sound_notification_method sound_file=theirs.wav")});
    EXPECT_TRUE(stored(typing).contains("theirs.wav"));
}

TEST_F(RuleWaiting, WhatAnotherClientStoredIsSeen)
{
    editor->add(typing, sound);
    QSignalSpy changed(editor.get(), &RuleEditor::rulesChanged);
    storeElsewhere(typing, QByteArray(stored(typing)).replace("bell.wav", "theirs.wav"));
    editor->refresh();
    EXPECT_EQ(changed, QList<QVariantList>{{typing}});
    EXPECT_EQ(rules(typing), QStringList{QStringLiteral("zepa_sound_notification_method sound_file=theirs.wav")});
}

TEST_F(RuleWaiting, ASettingIsStoredWhenItsFileIsFree)
{
    QSignalSpy changed(editor.get(), &RuleEditor::settingChanged);
    beginToChangeSettingsElsewhere();
    editor->changeSetting(repeats, QStringLiteral("30"));
    EXPECT_EQ(limit(), QStringLiteral("5"));
    EXPECT_EQ(editor->problem(), QString());
    settingsElsewhere.reset();
    ASSERT_TRUE(!changed.isEmpty() || changed.wait());
    EXPECT_EQ(limit(), QStringLiteral("30"));
    EXPECT_EQ(editor->undoText(), QStringLiteral("Change: Drop repeats for"));
    EXPECT_TRUE(storedSettings().contains("duplicated_notifications_time=30"));
}

TEST_F(RuleWaiting, ChangesAfterASettingThatWaitsAreMadeAfterIt)
{
    QSignalSpy rule(editor.get(), &RuleEditor::rulesChanged);
    QSignalSpy setting(editor.get(), &RuleEditor::settingChanged);
    QSignalSpy said(editor.get(), &RuleEditor::said);
    const ZepaField alerts = globalSettings().at(1);
    beginToChangeSettingsElsewhere();
    editor->changeSetting(alerts, QStringLiteral("never"));
    editor->changeSetting(alerts, QStringLiteral("always"));
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
    EXPECT_EQ(editor->setting(alerts).getText(), QStringLiteral("never"));
    EXPECT_TRUE(storedSettings().contains("alerts=never"));
}

TEST_F(RuleWaiting, ASettingIsRefusedWithASentenceWhenItsFileStaysBusy)
{
    QSignalSpy problem(editor.get(), &RuleEditor::problemChanged);
    editor->changeSetting(repeats, QStringLiteral("30"));
    problem.clear();
    beginToChangeSettingsElsewhere();
    editor->changeSetting(repeats, QStringLiteral("40"));
    while (problem.isEmpty())
        ASSERT_TRUE(problem.wait());
    EXPECT_TRUE(editor->problem().contains(QStringLiteral("another program"))) << editor->problem().toStdString();
    EXPECT_TRUE(editor->problem().contains(QStringLiteral("settings.ini"))) << editor->problem().toStdString();
    EXPECT_EQ(limit(), QStringLiteral("30"));
    problem.clear();
    editor->undo();
    while (problem.isEmpty())
        ASSERT_TRUE(problem.wait());
    EXPECT_EQ(limit(), QStringLiteral("30"));
    settingsElsewhere.reset();
    editor->undo();
    EXPECT_EQ(limit(), QStringLiteral("5"));
    EXPECT_EQ(editor->problem(), QString());
}

TEST_F(RuleWaiting, ASettingDoesNotNeedTheRuleFiles)
{
    QSignalSpy changed(editor.get(), &RuleEditor::settingChanged);
    beginToWorkElsewhere();
    editor->changeSetting(repeats, QStringLiteral("30"));
    while (changed.isEmpty())
        ASSERT_TRUE(changed.wait());
    EXPECT_EQ(limit(), QStringLiteral("30"));
    EXPECT_EQ(editor->problem(), QString());
}

TEST_F(RuleWaiting, AStartWaitsWithoutBlocking)
{
    editor.reset();
    client.reset();
    elsewhere.emplace(folder.filePath(QStringLiteral("notifications")));
    ASSERT_TRUE(elsewhere->tryNow());
    client = std::make_unique<Client>(folder.path(), Client::Start::Later);
    QObject context;
    auto gone = std::make_unique<QObject>();
    QEventLoop loop;
    QStringList calls;
    client->whenStarted(&context, [&] { calls.append(QStringLiteral("first")); });
    client->whenStarted(gone.get(), [&] { calls.append(QStringLiteral("gone")); });
    client->whenStarted(&context, [&] {
        calls.append(QStringLiteral("last"));
        loop.quit();
    });
    gone.reset();
    EXPECT_FALSE(client->hasStarted());
    EXPECT_FALSE(client->start());
    EXPECT_EQ(calls, QStringList());
    elsewhere.reset();
    loop.exec();
    EXPECT_TRUE(client->hasStarted());
    EXPECT_EQ(calls, (QStringList{QStringLiteral("first"), QStringLiteral("last")}));
    EXPECT_EQ(client->module().getNotifications().size(), 18);
}

TEST_F(RuleWaiting, AFirstStartProtectsTheDefaultsThatItWrites)
{
    const QDir rules(folder.filePath(QStringLiteral("notifications")));
    const QDir copies(folder.filePath(QStringLiteral("rules-backup/copies")));
    EXPECT_GT(rules.entryList(QDir::Files).size(), 10);
    EXPECT_EQ(copies.entryList(QDir::Files), rules.entryList(QDir::Files));
}

TEST_F(RuleWaiting, TheNamesOfRuleFilesAreThoseOfTheModulesTypes)
{
    EXPECT_EQ(sorted(builtInTypes()), sorted(client->module().getNotifications().keys()));
}
