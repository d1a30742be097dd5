// SPDX-License-Identifier: Apache-2.0
// A client with bodies of its own for all of host/: safe rules, journal and settings page without the kit's bodies.
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/journal/announce.h"
#include "kit/journal/recorded_methods.h"
#include "kit/rules/protected_module.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/rule_sync.h"
#include "kit/rules/safe_change.h"
#include "kit/settings_page/notification_settings.h"
#include "own_services.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString typing = u"typing_started_notify"_s;
const QString sound = u"zepa_sound_notification_method"_s;

class OwnBodies : public testing::Test
{
protected:
    OwnBodies() { EXPECT_TRUE(m_notifications.start()); }

    QString file(const QString& type) const { return m_services.folder.filePath(u"notifications/"_s + type); }
    QByteArray content(const QString& type) const
    {
        QFile open(file(type));
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
    }
    void write(const QString& type, const QByteArray& bytes) const
    {
        QFile open(file(type));
        ASSERT_TRUE(open.open(QIODevice::WriteOnly) && open.write(bytes) == bytes.size());
    }
    /// Everything in the settings folder, with its content.
    QMap<QString, QByteArray> onDisk() const
    {
        QMap<QString, QByteArray> found;
        const QDir rules(m_services.folder.filePath(u"notifications"_s));
        const QStringList names = rules.entryList(QDir::Files);
        for (const QString& name : names)
            found.insert(name, content(name));
        found.insert(
            u"/"_s,
            QDir(m_services.folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).join(u' ').toUtf8());
        return found;
    }
    zepa::SafeChange add()
    {
        zepa::RuleLock lock(m_notifications.backup().ruleFolder());
        ZepaNotificationModule& module = m_notifications.module();
        return changeSafely(module, m_notifications.backup(), lock, typing, [&module] {
            QList<ZepaField> config = module.getMethods().value(sound)->fields;
            module.addNotificationRule(typing, sound, config);
        });
    }
    qsizetype count() { return zepa::rulesOf(m_notifications.module(), typing).size(); }

    OwnServices m_services;
    zepa::RecordedMethods m_recorded;
    zepa::ProtectedModule m_notifications{
        {.wrapMethods = [this](ZepaNotificationModule& module) { m_recorded.wrapIn(module); }}};
};

TEST_F(OwnBodies, ChangeRulesSafely)
{
    EXPECT_EQ(add(), zepa::SafeChange::Stored);
    EXPECT_TRUE(content(typing).contains(sound.toUtf8()));
    EXPECT_TRUE(content(typing).contains("<own ")) << content(typing).toStdString();
    const QString copy = m_services.folder.filePath(u"rules-backup/copies/"_s + typing);
    EXPECT_TRUE(QFile::exists(copy));
}

TEST_F(OwnBodies, LearnWhatAnotherClientStored)
{
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    const QByteArray one = content(typing);
    write(typing, QByteArray(one).replace("<own ", "<own other=\"1\" "));
    EXPECT_EQ(add(), zepa::SafeChange::Stored);
    write(typing, one);
    EXPECT_TRUE(zepa::bringUpToDate(m_notifications.module(), m_notifications.backup()));
    EXPECT_EQ(count(), 1);
}

TEST_F(OwnBodies, AreRefusedChangesWhenTheirSettingsDoNotHideTheRuleFolder)
{
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    m_services.ignoresHiding = true;
    // Another client's change, which could only be learnt by writing to its file.
    write(typing, "<rules/>");
    const auto before = onDisk();
    EXPECT_EQ(add(), zepa::SafeChange::Refused);
    EXPECT_FALSE(zepa::bringUpToDate(m_notifications.module(), m_notifications.backup()));
    EXPECT_TRUE(onDisk() == before);
    EXPECT_EQ(count(), 1);
}

TEST_F(OwnBodies, AnnounceEventsAndHaveAJournalOfThem)
{
    ASSERT_EQ(add(), zepa::SafeChange::Stored);
    zepa::Posting posting;
    posting.type = typing;
    posting.title = u"Ann"_s;
    posting.buddy = ZepaBuddy(u"ann"_s, u"Ann"_s, ZepaBuddy::Contact);
    const zepa::Report report = announce(m_recorded.recorder(m_notifications.module()), posting);
    EXPECT_EQ(report.methods(), QStringList{sound});
    ASSERT_EQ(m_recorded.journal().rowCount(), 1);
    EXPECT_EQ(m_recorded.journal().entry(0).who, u"Ann"_s);
}

TEST_F(OwnBodies, EditRulesAndSettingsOnThePage)
{
    zepa::NotificationSettings page(m_notifications.ruleStore(m_services));
    page.show();
    page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    auto* table = page.findChild<QTableView*>(u"rules"_s);
    const QModelIndex cell = table->model()->index(0, 0);
    const QVariant before = cell.data(Qt::CheckStateRole);
    const auto files = onDisk();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(cell).center());
    EXPECT_NE(cell.data(Qt::CheckStateRole), before);
    EXPECT_FALSE(onDisk() == files);

    auto* repeats = page.findChild<QSpinBox*>(u"duplicated_notifications_time"_s);
    ASSERT_TRUE(repeats);
    repeats->setFocus();
    QTest::keyClick(repeats, Qt::Key_Up);
    EXPECT_EQ(m_services.values[u"duplicated_notifications_time"_s], u"6"_s);
}

} // namespace
