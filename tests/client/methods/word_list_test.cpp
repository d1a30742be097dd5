// SPDX-License-Identifier: Apache-2.0
#include "client/methods/command/word_list.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {

using zepa::filledIn;
using zepa::splitWords;

TEST(CommandWords, AreSeparatedByBlanksAndKeptTogetherByQuotes)
{
    const QHash<QString, QStringList> expected{
        {QString(), {}},
        {QStringLiteral("  \t "), {}},
        {QStringLiteral("beep"), {QStringLiteral("beep")}},
        {QStringLiteral("  a  b\tc\n"), {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}},
        {QStringLiteral("a 'b c' \"d e\""), {QStringLiteral("a"), QStringLiteral("b c"), QStringLiteral("d e")}},
        {QStringLiteral("a'b c'd"), {QStringLiteral("ab cd")}},
        {QStringLiteral("a '' \"\""), {QStringLiteral("a"), QString(), QString()}},
        {QStringLiteral("'a\\b' \"a\\\"b\\\\\" a\\ b"),
         {QStringLiteral("a\\b"), QStringLiteral("a\"b\\"), QStringLiteral("a b")}},
        {QStringLiteral("\"it's\" 'say \"x\"'"), {QStringLiteral("it's"), QStringLiteral("say \"x\"")}},
    };
    for (auto one = expected.cbegin(); one != expected.cend(); ++one)
        EXPECT_EQ(splitWords(one.key()), one.value()) << one.key().toStdString();
}

TEST(CommandWords, KnowNothingThatAShellKnows)
{
    const QString command = QStringLiteral("echo $HOME *.txt ; rm `x` > y & | # ~");
    EXPECT_EQ(splitWords(command), command.split(u' '));
}

TEST(CommandWords, WithAnOpenEndAreRefused)
{
    for (const QString& command : {QStringLiteral("a 'b"), QStringLiteral("a \"b"), QStringLiteral("a \"b\\\""),
                                   QStringLiteral("a \\"), QStringLiteral("'")})
        EXPECT_FALSE(splitWords(command)) << command.toStdString();
}

TEST(CommandPlaceholders, AreReplacedOnceAndNotLookedAtAgain)
{
    const QHash<QChar, QString> texts{{u't', QStringLiteral("%m \"x\" $y")}, {u'm', QStringLiteral("text")}};
    EXPECT_EQ(filledIn(QStringLiteral("<%t|%m>"), texts), QStringLiteral("<%m \"x\" $y|text>"));
    EXPECT_EQ(filledIn(QStringLiteral("%t%t"), texts), QStringLiteral("%m \"x\" $y%m \"x\" $y"));
    EXPECT_EQ(filledIn(QStringLiteral("%%m 100%"), texts), QStringLiteral("%m 100%"));
    EXPECT_EQ(filledIn(QStringLiteral("%%%m"), texts), QStringLiteral("%text"));
    EXPECT_EQ(filledIn(QStringLiteral("%x %T"), texts), QStringLiteral("%x %T"));
    EXPECT_EQ(filledIn(QString(), texts), QString());
}

} // namespace
