// SPDX-License-Identifier: Apache-2.0
#include "attention/window_alert.h"

#include <QWindow>
#include <gtest/gtest.h>

using attention::askingWindow;

namespace {

struct ShownWindow : QWindow
{
    explicit ShownWindow(Qt::WindowType type = Qt::Window)
    {
        setFlags(type);
        setVisible(true);
    }
};

} // namespace

TEST(AskingWindow, IsTheNamedOneThenTheLastActiveOneThenTheFirst)
{
    ShownWindow first;
    ShownWindow second;
    ShownWindow third;
    EXPECT_EQ(askingWindow(&third, &second), &third);
    EXPECT_EQ(askingWindow(nullptr, &second), &second);
    EXPECT_EQ(askingWindow(nullptr, nullptr), &first);
}

TEST(AskingWindow, IsOneThatIsVisibleAndHasAPlaceInTaskBars)
{
    EXPECT_EQ(askingWindow(nullptr, nullptr), nullptr);
    QWindow hidden;
    ShownWindow menu(Qt::Popup);
    ShownWindow tool(Qt::Tool);
    EXPECT_EQ(askingWindow(&hidden, &menu), nullptr);
    ShownWindow dialog(Qt::Dialog);
    EXPECT_EQ(askingWindow(&hidden, &tool), &dialog);
}
