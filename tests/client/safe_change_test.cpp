// SPDX-License-Identifier: Apache-2.0
#include "client/rules/safe_change.h"

#include "client/rules/rule_backup.h"
#include "client/rules/rule_lock.h"
#include "client/services/settings.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "small_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

namespace {

using zepa::changeSafely;
using zepa::RuleBackup;
using zepa::SafeChange;

/// The module with a single type, so that its files fit on a small disk; started as the client starts it.
class SafeChangeTest : public testing::Test
{
protected:
    void start()
    {
        m_module.reset();
        m_backup.reset();
        m_settings.reset();
        m_settings.emplace(m_folder.path());
        m_backup = std::make_unique<RuleBackup>(m_settings->getSettingsDir(), QStringList{type});
        m_backup->restore();
        m_module.reset(ZepaNotificationModule::getInstance());
        m_module->registerNotification(type, type, {}, {});
        m_backup->started();
        m_backup->keepAll();
    }
    SafeChange change(const std::function<void()>& edit)
    {
        zepa::RuleLock lock(m_backup->ruleFolder());
        return changeSafely(*m_module, *m_backup, lock, type, edit);
    }
    SafeChange add(const QString& id = sound)
    {
        return change([&] {
            QList<ZepaField> config = m_module->getMethods().value(id)->fields;
            m_module->addNotificationRule(type, id, config);
        });
    }
    qsizetype count() const { return m_module->getRules(m_module->getNotifications().value(type)).size(); }
    QString file() const { return m_folder.filePath(QStringLiteral("notifications/") + type); }
    QByteArray content() const
    {
        QFile open(file());
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
    }

    static inline const QString type = QStringLiteral("test_type");
    static inline const QString sound = QStringLiteral("zepa_sound_notification_method");

    QTemporaryDir m_folder;
    SmallDisk m_disk;
    std::optional<zepa::Settings> m_settings;
    std::unique_ptr<RuleBackup> m_backup;
    std::unique_ptr<ZepaNotificationModule> m_module;
};

TEST_F(SafeChangeTest, SaysThatAChangeIsStoredAndItIsThereAfterTheFileBroke)
{
    start();
    const qsizetype before = count();
    EXPECT_EQ(add(), SafeChange::Stored);
    EXPECT_TRUE(zepa::problemWith(SafeChange::Stored, type).isEmpty());
    QFile::resize(file(), 0);
    start();
    EXPECT_EQ(count(), before + 1);
    EXPECT_EQ(m_backup->restored(), QStringList{type});
}

TEST_F(SafeChangeTest, MakesManyStepsOneForWhoeverComesAfterACrash)
{
    start();
    add();
    const QByteArray before = content();
    const qsizetype rules = count();
    change([&] {
        while (m_module->getNotificationRule(type, sound))
            m_module->removeNotificationRule(type, sound);
        EXPECT_NE(content(), before);
        // Here the client dies: the next one starts on what is there now.
        RuleBackup next(m_settings->getSettingsDir(), {type});
        next.restore();
        EXPECT_EQ(content(), before);
    });
    EXPECT_LT(count(), rules);
}

TEST_F(SafeChangeTest, RefusesAChangeOfAFileThatCannotBeWritten)
{
    start();
    QFile::remove(file());
    QDir().mkdir(file());
    const qsizetype before = count();
    EXPECT_EQ(add(), SafeChange::Refused);
    EXPECT_EQ(count(), before);
    EXPECT_FALSE(zepa::problemWith(SafeChange::Refused, type).isEmpty());
}

TEST_F(SafeChangeTest, LosesNoStoredRuleOnADiskThatGetsFull)
{
    const QString problem = m_disk.mountAt(m_folder.path());
    if (!problem.isEmpty())
        GTEST_SKIP() << problem.toStdString();
    start();
    qsizetype stored = 0;
    SafeChange last = add();
    while (last == SafeChange::Stored || last == SafeChange::StoredWithoutCopy) {
        ++stored;
        last = add();
    }
    // And again and again, also with the last block taken.
    for (int i = 0; i < 10; ++i) {
        m_disk.fill();
        const SafeChange outcome = add();
        EXPECT_TRUE(outcome == SafeChange::NotStored || outcome == SafeChange::Refused);
        start();
        EXPECT_EQ(count(), stored);
    }
    QFile::remove(m_folder.filePath(QStringLiteral("filler")));
    EXPECT_GT(stored, 10);
}

TEST_F(SafeChangeTest, ChangesNothingMoreAsLongAsThereIsNoRoomForACopy)
{
    const QString problem = m_disk.mountAt(m_folder.path());
    if (!problem.isEmpty())
        GTEST_SKIP() << problem.toStdString();
    start();
    ASSERT_EQ(add(), SafeChange::Stored);
    ASSERT_EQ(add(), SafeChange::Stored);
    // The file has its block; another one for the copy is not to be had.
    const SafeChange withoutCopy = change([&] {
        m_module->removeNotificationRule(type, sound);
        m_disk.fill();
    });
    EXPECT_EQ(withoutCopy, SafeChange::StoredWithoutCopy);
    const qsizetype stored = count();
    EXPECT_EQ(add(), SafeChange::Refused);
    EXPECT_EQ(count(), stored);
    start();
    EXPECT_EQ(count(), stored);
}

} // namespace
