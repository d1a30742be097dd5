// SPDX-License-Identifier: Apache-2.0
// The table of types and methods: what it shows, and what mouse, keyboard and screen reader make of it.
#include "window_fixture.h"

#include "client/window/client_requests.h"
#include "qt_printers.h"

#include <QLabel>
#include <QSpinBox>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

class RuleTable : public SettingsWindow
{
protected:
    bool isMarked(const QString& type, const QString& method) const
    {
        return cell(type, method).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    /// What a screen reader says at the cell.
    QString heard(const QModelIndex& index) const
    {
        auto* whole = QAccessible::queryAccessibleInterface(table())->tableInterface();
        return whole->cellAt(index.row(), index.column())->text(QAccessible::Name);
    }
};

} // namespace

TEST_F(RuleTable, HasARowForEachTypeAndAColumnForEachMethod)
{
    EXPECT_EQ(table()->model()->rowCount(), 18);
    EXPECT_EQ(table()->model()->columnCount(), client->module().getMethods().size() + 1);
    const QModelIndex index = cell(typing, popup);
    EXPECT_EQ(table()->model()->headerData(index.row(), Qt::Vertical).toString(), u"Typing started"_s);
    EXPECT_TRUE(table()->model()->headerData(index.row(), Qt::Vertical, Qt::ToolTipRole).toString().contains(typing));
    EXPECT_EQ(table()->model()->headerData(index.column(), Qt::Horizontal).toString(), u"Pop-up"_s);
}

TEST_F(RuleTable, MarksThePairsThatHaveARule)
{
    EXPECT_TRUE(isMarked(message, popup));
    EXPECT_FALSE(isMarked(typing, popup));
}

TEST_F(RuleTable, ShowsTheSamePairTwiceAsTwo)
{
    clickCell(cell(typing, popup));
    click(find("add"));
    EXPECT_EQ(cell(typing, popup).data().toString(), QString());
    click(find("add"));
    EXPECT_EQ(cell(typing, popup).data().toString(), u"2"_s);
    EXPECT_TRUE(isMarked(typing, popup));
    EXPECT_EQ(heard(cell(typing, popup)), u"Typing started, Pop-up: 2 rules"_s);
}

TEST_F(RuleTable, AClickOnTheMarkAddsAndRemovesARule)
{
    clickMark(cell(typing, sound));
    EXPECT_TRUE(isMarked(typing, sound));
    EXPECT_EQ(rules(typing).size(), 1);
    clickMark(cell(typing, sound));
    EXPECT_FALSE(isMarked(typing, sound));
    EXPECT_EQ(rules(typing).size(), 0);
}

TEST_F(RuleTable, AClickBesideTheMarkOnlyChoosesTheCell)
{
    clickCell(cell(typing, sound));
    EXPECT_EQ(table()->currentIndex(), cell(typing, sound));
    EXPECT_FALSE(isMarked(typing, sound));
}

TEST_F(RuleTable, SpaceAddsAndRemovesARuleAtTheCellThatArrowsReach)
{
    table()->setFocus();
    const QModelIndex target = cell(typing, sound);
    press(Qt::Key_Home, Qt::ControlModifier);
    for (int row = 0; row < target.row(); ++row)
        press(Qt::Key_Down);
    for (int column = 0; column < target.column(); ++column)
        press(Qt::Key_Right);
    ASSERT_EQ(table()->currentIndex(), target);
    press(Qt::Key_Space);
    EXPECT_TRUE(isMarked(typing, sound));
    EXPECT_EQ(said(), u"Typing started, Sound: one rule"_s);
    press(Qt::Key_Space);
    EXPECT_FALSE(isMarked(typing, sound));
    EXPECT_EQ(rules(typing), QStringList());
}

TEST_F(RuleTable, SpaceWhereNoMethodIsChangesNothing)
{
    clickCell(table()->model()->index(0, table()->model()->columnCount() - 1));
    press(Qt::Key_Space);
    EXPECT_FALSE(find("undo")->isEnabled());
}

TEST_F(RuleTable, TellsAScreenReaderTypeMethodAndRules)
{
    EXPECT_EQ(heard(cell(message, popup)), u"Message received, Pop-up: one rule"_s);
    EXPECT_EQ(heard(cell(typing, popup)), u"Typing started, Pop-up: no rule"_s);
}

TEST_F(RuleTable, KeepsAChangeForTheNextStart)
{
    clickMark(cell(typing, sound));
    clickMark(cell(message, popup));
    restart();
    EXPECT_TRUE(isMarked(typing, sound));
    EXPECT_FALSE(isMarked(message, popup));
}

TEST_F(RuleTable, ShowsWhatSomeoneElseChangedOnRefresh)
{
    QSignalSpy changed(table()->model(), &QAbstractItemModel::dataChanged);
    QList<ZepaField> config;
    client->module().addNotificationRule(typing, popup, config);
    window->refresh();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_TRUE(said().contains(u"outside"_s)) << said().toStdString();
}

TEST_F(RuleTable, ShowsWhatACommandOfAnotherStartChanged)
{
    QSignalSpy changed(table()->model(), &QAbstractItemModel::dataChanged);
    client->module().removeNotificationRule(message, popup);
    Q_EMIT ClientRequests::instance().commandCarriedOut();
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(RuleTable, LooksForChangesWhenTheWindowIsActivated)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    client->module().removeNotificationRule(message, popup);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(said().contains(u"outside"_s)) << said().toStdString();
}

TEST_F(RuleTable, GetsARowForATypeThatIsRegisteredLater)
{
    client->module().registerNotification(u"lunch"_s, u"Lunch"_s, {}, {});
    window->refresh();
    EXPECT_EQ(table()->model()->rowCount(), 19);
    clickMark(cell(u"lunch"_s, popup));
    EXPECT_EQ(rules(u"lunch"_s).size(), 1);
}
