// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/command_template.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::filledIn;
using zepa::splitWords;

TEST(CommandWords, AreSeparatedByBlanksAndKeptTogetherByQuotes)
{
    const QHash<QString, QStringList> expected{
        {QString(), {}},
        {u"  \t "_s, {}},
        {u"beep"_s, {u"beep"_s}},
        {u"  a  b\tc\n"_s, {u"a"_s, u"b"_s, u"c"_s}},
        {u"a 'b c' \"d e\""_s, {u"a"_s, u"b c"_s, u"d e"_s}},
        {u"a'b c'd"_s, {u"ab cd"_s}},
        {u"a '' \"\""_s, {u"a"_s, QString(), QString()}},
        {u"'a\\b' \"a\\\"b\\\\\" a\\ b"_s, {u"a\\b"_s, u"a\"b\\"_s, u"a b"_s}},
        {u"\"it's\" 'say \"x\"'"_s, {u"it's"_s, u"say \"x\""_s}},
    };
    for (auto one = expected.cbegin(); one != expected.cend(); ++one)
        EXPECT_EQ(splitWords(one.key()), one.value()) << one.key().toStdString();
}

TEST(CommandWords, KnowNothingThatAShellKnows)
{
    const QString command = u"echo $HOME *.txt ; rm `x` > y & | # ~"_s;
    EXPECT_EQ(splitWords(command), command.split(u' '));
}

TEST(CommandWords, WithAnOpenEndAreRefused)
{
    for (const QString& command : {u"a 'b"_s, u"a \"b"_s, u"a \"b\\\""_s, u"a \\"_s, u"'"_s})
        EXPECT_FALSE(splitWords(command)) << command.toStdString();
}

TEST(CommandPlaceholders, AreReplacedOnceAndNotLookedAtAgain)
{
    const QHash<QChar, QString> texts{{u't', u"%m \"x\" $y"_s}, {u'm', u"text"_s}};
    EXPECT_EQ(filledIn(u"<%t|%m>"_s, texts), u"<%m \"x\" $y|text>"_s);
    EXPECT_EQ(filledIn(u"%t%t"_s, texts), u"%m \"x\" $y%m \"x\" $y"_s);
    EXPECT_EQ(filledIn(u"%%m 100%"_s, texts), u"%m 100%"_s);
    EXPECT_EQ(filledIn(u"%%%m"_s, texts), u"%text"_s);
    EXPECT_EQ(filledIn(u"%x %T"_s, texts), u"%x %T"_s);
    EXPECT_EQ(filledIn(QString(), texts), QString());
}

} // namespace
