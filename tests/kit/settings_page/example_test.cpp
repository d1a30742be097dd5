// SPDX-License-Identifier: Apache-2.0
// The example's dialog, in which another client than ours shows the page.
#include "examples/settings_page.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/journal/recorded_methods.h"
#include "kit/rules/method_titles.h"
#include "kit/rules/protected_module.h"
#include "kit/settings/settings.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The module started as the example starts it.
class SettingsPageExample : public testing::Test
{
protected:
    SettingsPageExample()
    {
        EXPECT_TRUE(m_notifications.start());
        m_dialog.emplace(m_notifications.ruleStore(m_settings), m_recorded.recorder(m_notifications.module()));
        m_dialog->show();
        m_dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&*m_dialog));
        auto* tabs = m_dialog->findChild<QTabBar*>();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    }

    void clickMark(const QString& type, const QString& method) const
    {
        auto* table = m_dialog->findChild<QTableView*>(u"rules"_s);
        ASSERT_TRUE(table && table->isVisible());
        const auto types = zepa::typesInOrder(m_notifications.module());
        const auto methods = zepa::methodsInOrder(m_notifications.module());
        int row = 0;
        while (types[row]->getId() != type)
            ++row;
        int column = 0;
        while (methods[column]->getId() != method)
            ++column;
        const QModelIndex cell = table->model()->index(row, column);
        table->scrollTo(cell);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(cell).center());
    }
    QByteArray stored(const QString& type) const
    {
        QFile file(m_folder.filePath(u"notifications/"_s + type));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    zepa::Settings m_settings{m_folder.path()};
    zepa::RecordedMethods m_recorded;
    zepa::ProtectedModule m_notifications{
        {.wrapMethods = [this](ZepaNotificationModule& module) { m_recorded.wrapIn(module); }}};
    std::optional<PreferencesDialog> m_dialog;
};

TEST_F(SettingsPageExample, AClickOnAMarkPutsTheRuleOnTheDisk)
{
    const QString typing = u"typing_started_notify"_s;
    const QString sound = u"zepa_sound_notification_method"_s;
    ASSERT_FALSE(stored(typing).contains(sound.toUtf8()));
    clickMark(typing, sound);
    EXPECT_TRUE(stored(typing).contains(sound.toUtf8()));
    clickMark(typing, sound);
    EXPECT_FALSE(stored(typing).contains(sound.toUtf8()));
}

TEST_F(SettingsPageExample, PostsASampleAndShowsWhatBecameOfIt)
{
    QTest::mouseClick(m_dialog->findChild<QPushButton*>(u"sample"_s), Qt::LeftButton);
    EXPECT_EQ(m_recorded.journal().rowCount(), 1);
    const QString said = m_dialog->findChild<QLabel*>(u"said"_s)->text();
    EXPECT_TRUE(said.startsWith(u"Sample 1 "_s)) << said.toStdString();
}

} // namespace
