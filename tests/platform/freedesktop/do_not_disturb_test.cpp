// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/do_not_disturb.h"

#include <gtest/gtest.h>

using zepa::freedesktop::doNotDisturb;

TEST(DoNotDisturb, IsNotToldWhereNoDesktopSaysAnything)
{
    EXPECT_EQ(doNotDisturb({}), ZepaDoNotDisturb::NotTold);
}

TEST(DoNotDisturb, IsOnWhereOneOfThemSaysSo)
{
    EXPECT_EQ(doNotDisturb({.inhibited = true, .paused = {}, .dnd = {}, .showsBanners = {}}), ZepaDoNotDisturb::On);
    EXPECT_EQ(doNotDisturb({.inhibited = false, .paused = true, .dnd = {}, .showsBanners = {}}), ZepaDoNotDisturb::On);
    EXPECT_EQ(doNotDisturb({.inhibited = {}, .paused = {}, .dnd = true, .showsBanners = true}), ZepaDoNotDisturb::On);
    EXPECT_EQ(doNotDisturb({.inhibited = {}, .paused = {}, .dnd = {}, .showsBanners = false}), ZepaDoNotDisturb::On);
}

TEST(DoNotDisturb, IsOffWhereAllThatSaySomethingSaySo)
{
    EXPECT_EQ(doNotDisturb({.inhibited = false, .paused = {}, .dnd = {}, .showsBanners = {}}), ZepaDoNotDisturb::Off);
    EXPECT_EQ(doNotDisturb({.inhibited = {}, .paused = false, .dnd = {}, .showsBanners = {}}), ZepaDoNotDisturb::Off);
    EXPECT_EQ(doNotDisturb({.inhibited = {}, .paused = {}, .dnd = false, .showsBanners = {}}), ZepaDoNotDisturb::Off);
    EXPECT_EQ(doNotDisturb({.inhibited = {}, .paused = {}, .dnd = {}, .showsBanners = true}), ZepaDoNotDisturb::Off);
}
