// SPDX-License-Identifier: Apache-2.0
// The window as a whole: settings of the whole client, undo, trouble with files, and the keyboard.
#include "window_fixture.h"

#include "kit/files/file_lock.h"
#include "kit/settings/global_settings.h"
#include "qt_printers.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

class NotificationSettingsTest : public SettingsWindow
{
protected:
    QSpinBox* repeats() const { return find<QSpinBox>("duplicated_notifications_time"); }
    int storedLimit() const
    {
        return client->settings().readGlobalSetting(globalSettings().constFirst()).getIntValue();
    }
    void enter(const QString& number) const
    {
        repeats()->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(number);
        press(Qt::Key_Return);
    }
};

} // namespace

TEST_F(NotificationSettingsTest, ANumberIsStoredAndKeepsToItsBounds)
{
    EXPECT_EQ(repeats()->minimum(), 0);
    EXPECT_EQ(repeats()->maximum(), 300);
    EXPECT_EQ(repeats()->value(), 5);
    enter(u"30"_s);
    EXPECT_EQ(storedLimit(), 30);
    press(Qt::Key_Up);
    EXPECT_EQ(storedLimit(), 31);
    enter(u"300"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(storedLimit(), 300);
    restart();
    EXPECT_EQ(repeats()->value(), 300);
}

TEST_F(NotificationSettingsTest, AChoiceIsStored)
{
    auto* alerts = find<QComboBox>("alerts");
    EXPECT_EQ(alerts->count(), 3);
    EXPECT_EQ(alerts->currentData().toString(), u"buddies_only"_s);
    alerts->setFocus();
    press(Qt::Key_Up);
    restart();
    EXPECT_EQ(find<QComboBox>("alerts")->currentData().toString(), u"always"_s);
}

TEST_F(NotificationSettingsTest, AStoredChoiceThatIsNotOfferedShowsNoneAndCannotBeGoneBackTo)
{
    window.reset();
    editor.reset();
    client.reset();
    QFile file(folder.filePath(u"settings.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("[General]\nalerts=sometimes\n") > 0);
    file.close();
    client = std::make_unique<Client>(folder.path());
    open();
    auto* alerts = find<QComboBox>("alerts");
    EXPECT_EQ(alerts->currentIndex(), -1);
    EXPECT_EQ(alerts->currentText(), QString());
    alerts->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(alerts->currentData().toString(), u"never"_s);
    EXPECT_FALSE(find("undo")->isEnabled());
    press(Qt::Key_Down);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(alerts->currentData().toString(), u"never"_s);
    EXPECT_FALSE(find("problem")->isVisible());
}

TEST_F(NotificationSettingsTest, AChangeThatABusyFileRefusesIsShownAsItWas)
{
    const FileLock elsewhere(folder.filePath(u"settings.lock"_s));
    ASSERT_TRUE(elsewhere.isHeld());
    enter(u"30"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return find("problem")->isVisible(); }, 60000));
    EXPECT_TRUE(find<QLabel>("problem")->text().contains(u"another program"_s));
    EXPECT_EQ(repeats()->value(), 5);
}

TEST_F(NotificationSettingsTest, TheWheelOverAFieldWithoutTheFocusChangesNothing)
{
    table()->setFocus();
    QWheelEvent wheel(QPointF(5, 5), repeats()->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(repeats(), &wheel);
    EXPECT_EQ(repeats()->value(), 5);
}

TEST_F(NotificationSettingsTest, CtrlZTakesTheLastChangesBackWhereverTheFocusIs)
{
    clickMark(cell(typing, popup));
    enter(u"30"_s);
    EXPECT_EQ(find("undo")->toolTip(), u"Change: Drop repeats for"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(storedLimit(), 5);
    EXPECT_EQ(repeats()->value(), 5);
    EXPECT_EQ(said(), u"Undone: Change: Drop repeats for"_s);
    table()->setFocus();
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rules(typing), QStringList());
    EXPECT_FALSE(find("undo")->isEnabled());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(rules(typing).size(), 1);
}

TEST_F(NotificationSettingsTest, TheUndoButtonSaysWhatItTakesBack)
{
    clickMark(cell(typing, popup));
    EXPECT_EQ(find("undo")->accessibleDescription(), u"Add: Typing started, Pop-up"_s);
    click(find("undo"));
    EXPECT_EQ(rules(typing), QStringList());
    click(find("redo"));
    EXPECT_EQ(rules(typing).size(), 1);
}

TEST_F(NotificationSettingsTest, ARuleThatCannotBeWrittenIsSaidAndTheMarkStaysAway)
{
    EXPECT_FALSE(find("problem")->isVisible());
    ASSERT_TRUE(QDir().mkpath(ruleFile(typing)));
    clickMark(cell(typing, popup));
    EXPECT_TRUE(find("problem")->isVisible());
    EXPECT_TRUE(find<QLabel>("problem")->text().contains(u"Typing started"_s));
    EXPECT_EQ(cell(typing, popup).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    ASSERT_TRUE(QDir().rmdir(ruleFile(typing)));
    clickMark(cell(typing, popup));
    EXPECT_FALSE(find("problem")->isVisible());
    EXPECT_EQ(rules(typing).size(), 1);
}

TEST_F(NotificationSettingsTest, TabReachesEveryFieldAndButtonThatIsThere)
{
    clickCell(cell(message, sound));
    QSet<QWidget*> reached;
    for (int presses = 0; presses < 60; ++presses) {
        reached.insert(QApplication::focusWidget());
        press(Qt::Key_Tab);
    }
    const auto widgets = window->findChildren<QWidget*>();
    int expected = 0;
    for (QWidget* widget : widgets) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
        if (!takesTab || !widget->isVisible() || !widget->isEnabled() || widget->objectName().startsWith(u"qt_"))
            continue;
        ++expected;
        EXPECT_TRUE(reached.contains(widget))
            << widget->metaObject()->className() << widget->objectName().toStdString();
    }
    EXPECT_GE(expected, 12);
}

TEST_F(NotificationSettingsTest, TabGoesThroughTheWindowAsItIsRead)
{
    // The second choice builds the fields of the rule anew.
    clickCell(cell(message, popup));
    clickCell(cell(message, sound));
    click(find("add"));
    table()->setFocus();
    QStringList names;
    do {
        names.append(QApplication::focusWidget()->objectName());
        press(Qt::Key_Tab);
    } while (!table()->hasFocus() && names.size() < 60);
    const QString asRead = u"rules rule sound_file play choose add remove sample defaults "
                           u"duplicated_notifications_time alerts icon_theme roster_theme sound_theme "
                           u"undo close"_s;
    EXPECT_EQ(names.join(u' '), asRead);
}

TEST_F(NotificationSettingsTest, EverythingThatTakesTheFocusHasANameForScreenReaders)
{
    for (const QString& method : {popup, sound, chat}) {
        clickCell(cell(message, method));
        const auto widgets = window->findChildren<QWidget*>();
        for (QWidget* widget : widgets) {
            if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || widget->focusProxy() ||
                widget->objectName().startsWith(u"qt_"))
                continue;
            auto* face = QAccessible::queryAccessibleInterface(widget);
            ASSERT_TRUE(face);
            EXPECT_NE(face->text(QAccessible::Name), QString())
                << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
        }
    }
}

TEST_F(NotificationSettingsTest, NoTwoButtonsThatAreShownShareAKey)
{
    clickCell(cell(message, sound));
    clickMark(cell(message, sound));
    clickMark(cell(message, sound));
    click(find("add"));
    QSet<QString> keys;
    const auto buttons = window->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        const QString key = button->shortcut().toString();
        if (key.isEmpty() || !button->isVisible())
            continue;
        EXPECT_FALSE(keys.contains(key)) << button->text().toStdString();
        keys.insert(key);
    }
    EXPECT_GE(keys.size(), 8);
}

TEST_F(NotificationSettingsTest, EscapeClosesTheWindow)
{
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}
