// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_text.h"

#include <gtest/gtest.h>

using zepa::freedesktop::bodyLimit;
using zepa::freedesktop::busText;
using zepa::freedesktop::Markup;

TEST(BusText, LeavesOrdinaryTextAsItIs)
{
    const QString text = QStringLiteral("Größe <b>&amp;</b>\n\tnew \U0001F600");
    EXPECT_EQ(busText(text, bodyLimit), text);
}

TEST(BusText, GivesAnEmptyTextForANullOne)
{
    const QString result = busText(QString(), bodyLimit);
    EXPECT_TRUE(result.isEmpty());
    EXPECT_FALSE(result.isNull());
}

TEST(BusText, EscapesOnlyWhereMarkupIsUnderstood)
{
    const QString text = QStringLiteral("a < b & c > d \"e\"");
    EXPECT_EQ(busText(text, bodyLimit, Markup::Escaped), QStringLiteral("a &lt; b &amp; c &gt; d \"e\""));
    EXPECT_EQ(busText(text, bodyLimit, Markup::None), text);
}

TEST(BusText, ReplacesWhatABusOrAPopupCannotTake)
{
    const char16_t units[] = {u'a', 0x0000, u'b', 0x0007, 0x001b, 0x007f, 0x0085, 0xfffe, 0xfdd0, u'c'};
    const QString text = QString::fromUtf16(units, std::size(units));
    const QChar shown(0xfffd);
    EXPECT_EQ(busText(text, bodyLimit), QStringLiteral("a") + shown + u'b' + QString(6, shown) + u'c');
}

TEST(BusText, ReplacesNoncharactersBeyondTheBasicPlane)
{
    const QString text = QString::fromUcs4(U"\U0001FFFE\U0010FFFF\U0010FFFD");
    EXPECT_EQ(busText(text, bodyLimit), QString(2, QChar(0xfffd)) + QString::fromUcs4(U"\U0010FFFD"));
}

TEST(BusText, ReplacesLoneSurrogatesAndKeepsPairs)
{
    const char16_t units[] = {0xdc00, u'a', 0xd83d, 0xd83d, 0xde00, 0xd83d};
    const QString text = QString::fromUtf16(units, std::size(units));
    const char16_t expected[] = {0xfffd, u'a', 0xfffd, 0xd83d, 0xde00, 0xfffd};
    EXPECT_EQ(busText(text, bodyLimit), QString::fromUtf16(expected, std::size(expected)));
}

TEST(BusText, DropsWhatWouldTurnRoundTheTextBehindItAndKeepsMarks)
{
    const QString override = QStringLiteral("photo_\u202Egnp.exe");
    EXPECT_EQ(busText(override, bodyLimit), QStringLiteral("photo_gnp.exe"));
    const QString all = QStringLiteral("\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069");
    EXPECT_EQ(busText(u'a' + all + u'b', bodyLimit, Markup::Escaped), QStringLiteral("ab"));
    EXPECT_EQ(busText(all, bodyLimit), QString());
    EXPECT_EQ(busText(u'1' + all + QStringLiteral("2345"), 5), QStringLiteral("12345")) << "they count for nothing";
    const QString marks = QStringLiteral("\u05D0\u200E \u200F\u061C\u2029\u2065\u206A");
    EXPECT_EQ(busText(marks, bodyLimit), marks);
}

TEST(BusText, MakesEveryKindOfLineEndALineFeed)
{
    EXPECT_EQ(busText(QStringLiteral("a\r\nb\rc\nd\r"), bodyLimit), QStringLiteral("a\nb\nc\nd\n"));
}

TEST(BusText, CutsOnlyBeyondItsLimit)
{
    EXPECT_EQ(busText(QStringLiteral("12345"), 5), QStringLiteral("12345"));
    EXPECT_EQ(busText(QStringLiteral("123456"), 5), QStringLiteral("1234\u2026"));
}

TEST(BusText, NeverSplitsASurrogatePair)
{
    EXPECT_EQ(busText(QStringLiteral("123\U0001F6006"), 5), QStringLiteral("123\u2026"));
    EXPECT_EQ(busText(QStringLiteral("123\U0001F600"), 5), QStringLiteral("123\U0001F600"));
}

TEST(BusText, NeverSplitsAnEntity)
{
    EXPECT_EQ(busText(QStringLiteral("12&4"), 7, Markup::Escaped), QStringLiteral("12&amp;…").left(2) + QChar(0x2026));
    EXPECT_EQ(busText(QStringLiteral("12&"), 7, Markup::Escaped), QStringLiteral("12&amp;"));
    EXPECT_EQ(busText(QStringLiteral("<<<<"), 9, Markup::Escaped), QStringLiteral("&lt;&lt;\u2026"));
}

TEST(BusText, TakesItsOwnResultUnchanged)
{
    const QString once = busText(QString(20000, u'x') + QChar(0xd800), bodyLimit);
    EXPECT_EQ(once.size(), bodyLimit);
    EXPECT_EQ(busText(once, bodyLimit), once);
}

TEST(BusText, CutsTenMegabytesToItsLimit)
{
    const QString result = busText(QString(10 * 1024 * 1024, u'&'), bodyLimit, Markup::Escaped);
    EXPECT_LE(result.size(), bodyLimit);
    EXPECT_TRUE(result.endsWith(QStringLiteral("&amp;\u2026")));
}
