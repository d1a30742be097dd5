// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/message_text.h"

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

using zepa::directionOf;
using zepa::longestMessage;
using zepa::messageText;
using zepa::nameText;

namespace {

constexpr QChar replacement(QChar::ReplacementCharacter);

} // namespace

TEST(MessageText, OrdinaryTextStaysAsItIs)
{
    const QString text = u"Gr\u00fc\u00dfe, \u05e9\u05dc\u05d5\u05dd <b>&amp; \U0001F600"_s;
    EXPECT_EQ(messageText(text), text);
}

TEST(MessageText, WhatHasNoMeaningIsReplaced)
{
    EXPECT_EQ(messageText(QString::fromUtf16(u"\0\x1b\x7f\x9b", 4)), QString(4, replacement));
    EXPECT_EQ(messageText(QString(QChar(0xfdd0)) + QChar(0xffff)), QString(2, replacement));
    EXPECT_EQ(messageText(u"\U0001fffe"_s), QString(replacement));
    EXPECT_EQ(messageText(QString(QChar::ObjectReplacementCharacter)), QString(replacement));
}

TEST(MessageText, HalvesOfCharactersAreReplacedAndWholeOnesStay)
{
    const QChar high(0xd83d);
    const QChar low(0xde00);
    const QString smiley = QString(high) + low;
    ASSERT_TRUE(smiley.isValidUtf16());
    EXPECT_EQ(messageText(smiley), smiley);
    const std::pair<QString, QString> halves[] = {
        {QString(high), QString(replacement)},
        {QString(low), QString(replacement)},
        {QString(high) + u'a', QString(replacement) + u'a'},
        {u'a' + QString(low), u'a' + QString(replacement)},
        {QString(low) + high, QString(2, replacement)},
        {high + smiley, replacement + smiley},
        {smiley + low, smiley + replacement},
    };
    for (const auto& [sent, shown] : halves) {
        ASSERT_FALSE(sent.isValidUtf16());
        EXPECT_EQ(messageText(sent), shown);
        EXPECT_EQ(nameText(sent), shown);
    }
}

TEST(MessageText, EveryKindOfLineBreakIsOne)
{
    EXPECT_EQ(messageText(u"a\r\nb\nc\rd\u2029e"_s), u"a\u2028b\u2028c\u2028d\u2028e"_s);
    EXPECT_EQ(messageText(QString(1000, u'\n')).count(QChar(QChar::LineSeparator)), 200);
}

TEST(MessageText, ALongTextIsCutWithAnEllipsisAndNotInsideACharacter)
{
    const QString text = messageText(QString(10 * 1024 * 1024, u'x'));
    EXPECT_LE(text.size(), longestMessage);
    EXPECT_TRUE(text.endsWith(u'\u2026'));
    QString smileys;
    for (int i = 0; i < longestMessage; ++i)
        smileys += u"\U0001F600"_s;
    for (const QString& start : {QString(), u"x"_s}) {
        const QString shown = messageText(start + smileys);
        EXPECT_TRUE(shown.isValidUtf16());
        EXPECT_FALSE(shown.contains(QChar(QChar::ReplacementCharacter)));
    }
}

TEST(MessageText, APileOfMarksIsCutDown)
{
    EXPECT_EQ(messageText(u'a' + QString(500, u'\u0301') + u'b').size(), 12);
}

TEST(MessageText, ANameIsOneLineWithoutMarksOfDirection)
{
    EXPECT_EQ(nameText(u"An\u202ena\nB"_s), u"Anna B"_s);
    EXPECT_EQ(nameText(QString(5000, u'x')).size(), zepa::longestName);
}

TEST(MessageText, TheFirstLetterWithADirectionDecides)
{
    EXPECT_EQ(directionOf(u"12: \u05e9\u05dc\u05d5\u05dd hello"_s, Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(directionOf(u"12: hello \u05e9"_s, Qt::RightToLeft), Qt::LeftToRight);
    EXPECT_EQ(directionOf(u"12 :-)"_s, Qt::RightToLeft), Qt::RightToLeft);
}
