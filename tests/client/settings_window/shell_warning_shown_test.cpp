// SPDX-License-Identifier: Apache-2.0
#include "window_fixture.h"

#include <QLineEdit>

using namespace zepa;
using namespace zepa::test;

namespace {

const QString commands = QStringLiteral("zepa_command_notification_method");

class ShellWarningShown : public SettingsWindow
{
protected:
    /// Whether a label of the window warns.
    bool isShown() const
    {
        const auto labels = window->findChildren<QLabel*>();
        return std::any_of(labels.cbegin(), labels.cend(), [](const QLabel* label) {
            return label->isVisible() && label->text().contains(QStringLiteral("\"$ZEPA_TEXT\" instead of %m"));
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
    enter(QStringLiteral("sh -c 'echo %m'"));
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(said().contains(QStringLiteral("ZEPA_TEXT"))) << said().toStdString();
    enter(QStringLiteral("sh -c 'echo \"$ZEPA_TEXT\"'"));
    EXPECT_FALSE(isShown());
}
