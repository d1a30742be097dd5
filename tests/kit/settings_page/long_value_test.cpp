// SPDX-License-Identifier: Apache-2.0
// Values that are longer than a line of text can show.
#include "window_fixture.h"

#include "qt_printers.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

const QString runsCommands = u"zepa_command_notification_method"_s;
const QString longValue = QString(40'000, u'x') + u"end"_s;

class LongValue : public SettingsWindow
{
protected:
    /// A rule of typing_started_notify with the long value in its first field, shown in the window.
    QLineEdit* showRule(const QString& method, const char* field)
    {
        QList<ZepaField> config = initialFields(client->module(), typing, method);
        config[0].setText(longValue);
        client->module().addNotificationRule(typing, method, config);
        window->refresh();
        clickCell(cell(typing, method));
        return find<QLineEdit>(field);
    }
    QString value() const { return rules(typing).constFirst().section(u'=', 1); }

    void expectThatItStays(QLineEdit* line) const
    {
        ASSERT_TRUE(line);
        click(line);
        press(Qt::Key_Tab);
        EXPECT_EQ(value().size(), longValue.size());
        click(line);
        press(Qt::Key_Return);
        EXPECT_EQ(value().size(), longValue.size());
    }
};

} // namespace

TEST_F(LongValue, OfATextStaysWhenTheFieldIsLeft)
{
    QLineEdit* line = showRule(runsCommands, "command");
    expectThatItStays(line);
    line->setText(u"true"_s);
    click(line);
    press(Qt::Key_Return);
    EXPECT_EQ(value(), u"true"_s);
}

TEST_F(LongValue, OfASoundStaysWhenTheFieldIsLeft)
{
    expectThatItStays(showRule(sound, "sound_file"));
}

TEST_F(LongValue, IsShownAgainWhenItIsPutBack)
{
    QLineEdit* line = showRule(runsCommands, "command");
    ASSERT_TRUE(line);
    line->setText(u"true"_s);
    click(line);
    press(Qt::Key_Return);
    click(find("undo"));
    EXPECT_EQ(value().size(), longValue.size());
    expectThatItStays(line);
}
