// SPDX-License-Identifier: Apache-2.0
// The chosen rule's settings, and what can be done with its type.
#include "window_fixture.h"

#include "qt_printers.h"
#include "tests/kit/sound/log_lines.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

class RulePaneTest : public SettingsWindow
{
protected:
    QLineEdit* soundLine() const { return find<QLineEdit>("sound_file"); }
    /// Replaces the text in the line and presses Enter.
    void enter(QLineEdit* line, const QString& text) const
    {
        click(line);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
    }
    QString warning() const
    {
        const auto* label = find<QLabel>("soundWarning");
        return label->isVisible() ? label->text() : QString();
    }
    /// Chooses the file in the dialog that the button opens.
    void choose(const QString& path) const
    {
        click(find("choose"));
        auto* dialog = window->findChild<QFileDialog*>();
        ASSERT_TRUE(dialog);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        // Typing would open the dialog's list of suggestions, which takes the keyboard.
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path);
        click(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
    }
};

} // namespace

TEST_F(RulePaneTest, ACheckBoxChangesItsRuleWithTheMouseAndWithSpace)
{
    clickCell(cell(message, popup));
    auto* sticky = find<QCheckBox>("sticky");
    QTest::mouseClick(sticky, Qt::LeftButton, {}, QPoint(8, sticky->height() / 2));
    EXPECT_TRUE(rules(message).contains(u"zepa_hint_notification sticky=true"_s));
    press(Qt::Key_Space);
    EXPECT_TRUE(rules(message).contains(u"zepa_hint_notification sticky=false"_s));
    press(Qt::Key_Space);
    restart();
    EXPECT_TRUE(rules(message).contains(u"zepa_hint_notification sticky=true"_s));
}

TEST_F(RulePaneTest, ATypedSoundIsStoredWithEnter)
{
    clickCell(cell(message, sound));
    enter(soundLine(), u"mail.wav"_s);
    EXPECT_TRUE(rules(message).contains(u"zepa_sound_notification_method sound_file=mail.wav"_s));
    EXPECT_EQ(warning(), QString());
}

TEST_F(RulePaneTest, ATypedSoundIsStoredWhenTheFocusGoesOn)
{
    clickCell(cell(message, sound));
    click(soundLine());
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"mail.wav"_s);
    press(Qt::Key_Tab);
    EXPECT_TRUE(rules(message).contains(u"zepa_sound_notification_method sound_file=mail.wav"_s));
}

TEST_F(RulePaneTest, ASoundThatCannotBePlayedIsSaidToBeSo)
{
    clickCell(cell(message, sound));
    enter(soundLine(), u"silence.wav"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return warning() == u"This file cannot be played."_s; }));
    enter(soundLine(), u"bell.wav"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return warning().isEmpty(); }));
}

TEST_F(RulePaneTest, PlayHandsTheSoundOfTheThemeToTheAudioService)
{
    const LogLines log;
    clickCell(cell(message, sound));
    enter(soundLine(), u"nothing-here.wav"_s);
    click(find("play"));
    const QString file = client->settings().getCurrentSoundThemeDir() + u"nothing-here.wav"_s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.lines().join(u'\n').contains(file); }));
}

TEST_F(RulePaneTest, AChosenFileThatPlaysIsTakenAndStored)
{
    const QString file = folder.filePath(u"ding.wav"_s);
    ASSERT_TRUE(QFile::copy(client->settings().getCurrentSoundThemeDir() + u"bell.wav"_s, file));
    clickCell(cell(message, sound));
    choose(file);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return rules(message).contains(u"zepa_sound_notification_method sound_file="_s + file); }));
    EXPECT_EQ(soundLine()->text(), file);
}

TEST_F(RulePaneTest, AChosenFileOfTheThemeIsKeptByItsNameAlone)
{
    clickCell(cell(message, sound));
    choose(client->settings().getCurrentSoundThemeDir() + u"mail.wav"_s);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return rules(message).contains(u"zepa_sound_notification_method sound_file=mail.wav"_s); }));
}

TEST_F(RulePaneTest, AChosenFileThatDoesNotPlayIsNotTaken)
{
    const QString path = folder.filePath(u"noise.wav"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no sound at all");
    file.close();
    const QStringList before = rules(message);
    clickCell(cell(message, sound));
    choose(path);
    EXPECT_TRUE(QTest::qWaitFor([this] { return warning().contains(u"not taken"_s); }));
    EXPECT_EQ(rules(message), before);
}

TEST_F(RulePaneTest, BothRulesOfAPairCanBeChangedAndRemoved)
{
    clickCell(cell(typing, popup));
    EXPECT_FALSE(find("rule")->isVisible());
    click(find("add"));
    click(find("add"));
    auto* choice = find<QComboBox>("rule");
    ASSERT_TRUE(choice->isVisible());
    ASSERT_EQ(choice->count(), 2);

    choice->setFocus();
    press(Qt::Key_Down);
    find("sticky")->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(rules(typing),
              (QStringList{u"zepa_hint_notification sticky=false"_s, u"zepa_hint_notification sticky=true"_s}));
    EXPECT_EQ(choice->currentIndex(), 1);
    click(find("remove"));
    EXPECT_EQ(rules(typing), QStringList{u"zepa_hint_notification sticky=false"_s});
    EXPECT_FALSE(choice->isVisible());
}

TEST_F(RulePaneTest, WithoutARuleItOffersToAddOne)
{
    clickCell(cell(typing, sound));
    EXPECT_FALSE(find("remove")->isVisible());
    click(find("add"));
    EXPECT_EQ(rules(typing), QStringList{u"zepa_sound_notification_method sound_file=bell.wav"_s});
    EXPECT_EQ(soundLine()->text(), u"bell.wav"_s);
    click(find("remove"));
    EXPECT_EQ(rules(typing), QStringList());
}

TEST_F(RulePaneTest, RestoresTheDefaultsOfTheChosenType)
{
    const QStringList before = sorted(rules(message));
    clickMark(cell(message, popup));
    clickMark(cell(message, sound));
    EXPECT_TRUE(find("defaults")->isEnabled());
    click(find("defaults"));
    EXPECT_EQ(sorted(rules(message)), before);
    EXPECT_FALSE(find("defaults")->isEnabled());
}

TEST_F(RulePaneTest, ASampleSaysWhereItWentAndEachOneIsDelivered)
{
    clickCell(cell(message, sound));
    for (const char* number : {"Sample 1 ", "Sample 2 "}) {
        click(find("sample"));
        EXPECT_TRUE(said().contains(QString::fromLatin1(number))) << said().toStdString();
        EXPECT_TRUE(said().contains(u"Pop-up"_s)) << said().toStdString();
        EXPECT_TRUE(said().contains(u"Sound"_s)) << said().toStdString();
    }
}

TEST_F(RulePaneTest, ASampleOfATypeWithoutRulesSaysThatNothingHappens)
{
    clickCell(cell(typing, sound));
    click(find("sample"));
    EXPECT_TRUE(said().contains(u"no rule"_s)) << said().toStdString();
}
