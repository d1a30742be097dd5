// SPDX-License-Identifier: Apache-2.0
#include "client/cli/output.h"

#include <gtest/gtest.h>

namespace {

using zepa::cli::onOneLine;

TEST(Output, SteersNoTerminal)
{
    EXPECT_EQ(onOneLine(QStringLiteral("a\x1b[31m\nb\tc\rd")), QStringLiteral("a\\u001b[31m\\nb\\tc\\u000dd"));
    EXPECT_EQ(onOneLine(QStringLiteral("\u009b2J\u202e\u2028")), QStringLiteral("\\u009b2J\\u202e\\u2028"));
}

TEST(Output, KeepsOrdinaryTexts)
{
    const QString text = QStringLiteral("Gr\u00FC\u00DFe \u4E2D \U0001F600 \\ \"x\"");
    EXPECT_EQ(onOneLine(text), text);
}

TEST(Output, AlignsTheColumnsOfATable)
{
    testing::internal::CaptureStdout();
    zepa::cli::sayTable({QStringLiteral("A"), QStringLiteral("B")}, {{QStringLiteral("long one"), QStringLiteral("x")},
                                                                     {QStringLiteral("s"), QStringLiteral("y\n")}});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "A         B\nlong one  x\ns         y\\n\n");
}

} // namespace
