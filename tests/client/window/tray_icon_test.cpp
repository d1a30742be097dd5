// SPDX-License-Identifier: Apache-2.0
#include "host/tray_icon.h"

#include <QObject>
#include <QPixmap>
#include <QPointer>

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(TrayIcon, IsHiddenAndWithoutAPictureAtFirst)
{
    const ZepaTrayIcon icon(nullptr);
    EXPECT_FALSE(icon.isVisible());
    EXPECT_TRUE(icon.icon().isNull());
}

TEST(TrayIcon, KeepsPictureAndStateWithoutAStatusArea)
{
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    ZepaTrayIcon icon(nullptr);
    icon.setIcon(QIcon(picture));
    icon.setVisible(true);
    EXPECT_TRUE(icon.isVisible());
    EXPECT_FALSE(icon.icon().isNull());
    icon.setVisible(false);
    EXPECT_FALSE(icon.isVisible());
    icon.setIcon(QIcon());
    EXPECT_TRUE(icon.icon().isNull());
}

TEST(TrayIcon, GoesWithItsParent)
{
    auto parent = std::make_unique<QObject>();
    const QPointer<ZepaTrayIcon> icon = new ZepaTrayIcon(parent.get());
    icon->setVisible(true);
    parent.reset();
    EXPECT_TRUE(icon.isNull());
}

} // namespace
