// SPDX-License-Identifier: Apache-2.0
#include "client/cli/output.h"

#include <QJsonDocument>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::cli::onOneLine;

TEST(Output, SteersNoTerminal)
{
    EXPECT_EQ(onOneLine(u"a\x1b[31m\nb\tc\rd"_s), u"a\\u001b[31m\\nb\\tc\\u000dd"_s);
    EXPECT_EQ(onOneLine(u"\u009b2J\u202e\u2028"_s), u"\\u009b2J\\u202e\\u2028"_s);
}

TEST(Output, KeepsOrdinaryTexts)
{
    const QString text = u"Gr\u00FC\u00DFe \u4E2D \U0001F600 \\ \"x\""_s;
    EXPECT_EQ(onOneLine(text), text);
}

TEST(Output, AlignsTheColumnsOfATable)
{
    testing::internal::CaptureStdout();
    zepa::cli::sayRows({u"A"_s, u"B"_s}, {{u"long one"_s, u"x"_s}, {u"s"_s, u"y\n"_s}}, {}, false);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "A         B\nlong one  x\ns         y\\n\n");
}

/// What reaches the stream while `talk` runs.
template <typename Talk>
std::string onOutput(const Talk& talk)
{
    testing::internal::CaptureStdout();
    talk();
    return testing::internal::GetCapturedStdout();
}

const QString steering = u"\x1b]0;t\x07\u009b2J\u202e\r\x7f"_s;
const std::string shown = "\\u001b]0;t\\u0007\\u009b2J\\u202e\\u000d\\u007f";

TEST(Output, OfALineOrAComplaintIsOneLineThatSteersNothing)
{
    EXPECT_EQ(onOutput([] { zepa::cli::say(steering + u"\nzepa: x\t"_s); }), shown + "\\nzepa: x\\t\n");
    testing::internal::CaptureStderr();
    zepa::cli::printError(steering + u"\nzepa: x\t"_s);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "zepa: " + shown + "\\nzepa: x\\t\n");
}

TEST(Output, ThatIsPassedOnKeepsItsLinesAndTabsAlone)
{
    const auto passOn = [](const QString& text) { zepa::cli::passOn(zepa::cli::Stream::Output, text.toUtf8()); };
    EXPECT_EQ(onOutput([&] { passOn(u"a\tb\n"_s + steering + u'\n'); }), "a\tb\n" + shown + "\n");
    EXPECT_EQ(onOutput([&] { passOn(u"Gr\u00FC\u00DFe \u4E2D \U0001F600 \\u001b\n"_s); }),
              "Gr\u00FC\u00DFe \u4E2D \U0001F600 \\u001b\n");
    EXPECT_EQ(onOutput([] {
                  zepa::cli::passOn(zepa::cli::Stream::Output, "a\x9b"
                                                               "2J\n");
              }),
              "a\xef\xbf\xbd"
              "2J\n");
}

TEST(Output, InJsonIsEscapedAsJsonDoesIt)
{
    const QJsonObject object{{u"x"_s, steering}};
    for (const std::string& text : {onOutput([&] { zepa::cli::sayJsonLine(object); }),
                                    onOutput([&] { zepa::cli::sayRows({}, {}, {object}, true); })}) {
        const QByteArray bytes = QByteArray::fromStdString(text);
        EXPECT_EQ(QString::fromUtf8(bytes).count(QRegularExpression(u"[^\n -~]"_s)), 0) << text;
        const QJsonDocument read = QJsonDocument::fromJson(bytes);
        EXPECT_EQ((read.isArray() ? read.array().at(0) : QJsonValue(read.object()))[u"x"_s].toString(), steering);
    }
}

TEST(Output, OfTheLogSteersNothing)
{
    zepa::cli::filterLog();
    testing::internal::CaptureStderr();
    qWarning("%s", qUtf8Printable(u"one\ntwo "_s + steering));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "one\ntwo " + shown + "\n");
}

} // namespace
