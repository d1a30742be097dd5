// SPDX-License-Identifier: Apache-2.0
// Run twice: with the compiler's char, and with a char without a sign, as some processors have it.
#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

TEST(CFConstantString, IsTheSameObjectForTheSameText)
{
    EXPECT_EQ(CFSTR("text"), CFSTR("text"));
    EXPECT_EQ(CFStringGetLength(CFSTR("text")), 4);
}

TEST(CFConstantStringDeathTest, TrapsOnOtherThanAscii)
{
    EXPECT_DEATH(CFSTR("\x80"), "CFSTR");
    EXPECT_DEATH(CFSTR("gr\xfc\xdf"), "CFSTR");
}
