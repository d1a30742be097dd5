// SPDX-License-Identifier: Apache-2.0
#include "window_fixture.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

using namespace zepa;
using namespace zepa::test;

namespace {

const QString commands = u"zepa_command_notification_method"_s;

class ShellWarningShown : public SettingsWindow
{
protected:
    /// Whether a label of the window warns.
    bool isShown() const
    {
        const auto labels = window->findChildren<QLabel*>();
        return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel* label) {
            return label->isVisible() && label->text().contains(u"\"$ZEPA_TEXT\" instead of %m"_s);
        });
    }
    void enter(const QString& text) const
    {
        auto* line = find<QLineEdit>("command");
        ASSERT_TRUE(line);
        line->setText(text);
        click(line);
        press(Qt::Key_Return);
    }
};

} // namespace

TEST_F(ShellWarningShown, ComesAndGoesWithTheCommand)
{
    clickCell(cell(typing, commands));
    click(find("add"));
    EXPECT_FALSE(isShown());
    enter(u"sh -c 'echo %m'"_s);
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(said().contains(u"ZEPA_TEXT"_s)) << said().toStdString();
    enter(u"sh -c 'echo \"$ZEPA_TEXT\"'"_s);
    EXPECT_FALSE(isShown());
}
