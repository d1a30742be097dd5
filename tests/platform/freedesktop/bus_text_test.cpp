// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::freedesktop::bodyLimit;
using zepa::freedesktop::busText;
using zepa::freedesktop::Markup;

TEST(BusText, LeavesOrdinaryTextAsItIs)
{
    const QString text = u"Größe <b>&amp;</b>\n\tnew \U0001F600"_s;
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
    const QString text = u"a < b & c > d \"e\""_s;
    EXPECT_EQ(busText(text, bodyLimit, Markup::Escaped), u"a &lt; b &amp; c &gt; d \"e\""_s);
    EXPECT_EQ(busText(text, bodyLimit, Markup::None), text);
}

TEST(BusText, ReplacesWhatABusOrAPopupCannotTake)
{
    const char16_t units[] = {u'a', 0x0000, u'b', 0x0007, 0x001b, 0x007f, 0x0085, 0xfffe, 0xfdd0, u'c'};
    const QString text = QString::fromUtf16(units, std::size(units));
    const QChar shown(0xfffd);
    EXPECT_EQ(busText(text, bodyLimit), u"a"_s + shown + u'b' + QString(6, shown) + u'c');
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
    const QString override = u"photo_\u202Egnp.exe"_s;
    EXPECT_EQ(busText(override, bodyLimit), u"photo_gnp.exe"_s);
    const QString all = u"\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069"_s;
    EXPECT_EQ(busText(u'a' + all + u'b', bodyLimit, Markup::Escaped), u"ab"_s);
    EXPECT_EQ(busText(all, bodyLimit), QString());
    EXPECT_EQ(busText(u'1' + all + u"2345"_s, 5), u"12345"_s) << "they count for nothing";
    const QString marks = u"\u05D0\u200E \u200F\u061C\u2029\u2065\u206A"_s;
    EXPECT_EQ(busText(marks, bodyLimit), marks);
}

TEST(BusText, MakesEveryKindOfLineEndALineFeed)
{
    EXPECT_EQ(busText(u"a\r\nb\rc\nd\r"_s, bodyLimit), u"a\nb\nc\nd\n"_s);
}

TEST(BusText, CutsOnlyBeyondItsLimit)
{
    EXPECT_EQ(busText(u"12345"_s, 5), u"12345"_s);
    EXPECT_EQ(busText(u"123456"_s, 5), u"1234\u2026"_s);
}

TEST(BusText, NeverSplitsASurrogatePair)
{
    EXPECT_EQ(busText(u"123\U0001F6006"_s, 5), u"123\u2026"_s);
    EXPECT_EQ(busText(u"123\U0001F600"_s, 5), u"123\U0001F600"_s);
}

TEST(BusText, NeverSplitsAnEntity)
{
    EXPECT_EQ(busText(u"12&4"_s, 7, Markup::Escaped), u"12&amp;…"_s.left(2) + QChar(0x2026));
    EXPECT_EQ(busText(u"12&"_s, 7, Markup::Escaped), u"12&amp;"_s);
    EXPECT_EQ(busText(u"<<<<"_s, 9, Markup::Escaped), u"&lt;&lt;\u2026"_s);
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
    EXPECT_TRUE(result.endsWith(u"&amp;\u2026"_s));
}
