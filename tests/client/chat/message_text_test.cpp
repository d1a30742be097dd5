// SPDX-License-Identifier: Apache-2.0
#include "client/ui/message_text.h"

#include <gtest/gtest.h>

using zepa::directionOf;
using zepa::longestMessage;
using zepa::messageText;
using zepa::nameText;

TEST(MessageText, OrdinaryTextStaysAsItIs)
{
    const QString text = QStringLiteral("Gr\u00fc\u00dfe, \u05e9\u05dc\u05d5\u05dd <b>&amp; \U0001F600");
    EXPECT_EQ(messageText(text), text);
}

TEST(MessageText, WhatHasNoMeaningIsReplaced)
{
    const QString replaced(4, QChar(QChar::ReplacementCharacter));
    EXPECT_EQ(messageText(QString::fromUtf16(u"\0\x1b\x7f\x9b", 4)), replaced);
    const char16_t odd[] = {0xd800, 0xdc00 + 0x400 - 1 - 0x3ff, u'a', 0xdc00, 0xfdd0, 0xfffc, 0xd800};
    const QString text = messageText(QString::fromUtf16(odd + 2, 5));
    EXPECT_EQ(text, u'a' + replaced);
}

TEST(MessageText, EveryKindOfLineBreakIsOne)
{
    EXPECT_EQ(messageText(QStringLiteral("a\r\nb\nc\rd\u2029e")), QStringLiteral("a\u2028b\u2028c\u2028d\u2028e"));
    EXPECT_EQ(messageText(QString(1000, u'\n')).count(QChar(QChar::LineSeparator)), 200);
}

TEST(MessageText, ALongTextIsCutWithAnEllipsisAndNotInsideACharacter)
{
    const QString text = messageText(QString(10 * 1024 * 1024, u'x'));
    EXPECT_LE(text.size(), longestMessage);
    EXPECT_TRUE(text.endsWith(u'\u2026'));
    QString smileys;
    for (int i = 0; i < longestMessage; ++i)
        smileys += QStringLiteral("\U0001F600");
    for (const QString& start : {QString(), QStringLiteral("x")}) {
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
    EXPECT_EQ(nameText(QStringLiteral("An\u202ena\nB")), QStringLiteral("Anna B"));
    EXPECT_EQ(nameText(QString(5000, u'x')).size(), zepa::longestName);
}

TEST(MessageText, TheFirstLetterWithADirectionDecides)
{
    EXPECT_EQ(directionOf(QStringLiteral("12: \u05e9\u05dc\u05d5\u05dd hello"), Qt::LeftToRight), Qt::RightToLeft);
    EXPECT_EQ(directionOf(QStringLiteral("12: hello \u05e9"), Qt::RightToLeft), Qt::LeftToRight);
    EXPECT_EQ(directionOf(QStringLiteral("12 :-)"), Qt::RightToLeft), Qt::RightToLeft);
}
