// SPDX-License-Identifier: Apache-2.0
#include "client/cli/output.h"

#include <QJsonDocument>
#include <QRegularExpression>

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

/// What reaches the stream while `talk` runs.
template <typename Talk>
std::string onOutput(const Talk& talk)
{
    testing::internal::CaptureStdout();
    talk();
    return testing::internal::GetCapturedStdout();
}

const QString steering = QStringLiteral("\x1b]0;t\x07\u009b2J\u202e\r\x7f");
const std::string shown = "\\u001b]0;t\\u0007\\u009b2J\\u202e\\u000d\\u007f";

TEST(Output, OfALineOrAComplaintIsOneLineThatSteersNothing)
{
    EXPECT_EQ(onOutput([] { zepa::cli::say(steering + QStringLiteral("\nzepa: x\t")); }), shown + "\\nzepa: x\\t\n");
    testing::internal::CaptureStderr();
    zepa::cli::complain(steering + QStringLiteral("\nzepa: x\t"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "zepa: " + shown + "\\nzepa: x\\t\n");
}

TEST(Output, ThatIsPassedOnKeepsItsLinesAndTabsAlone)
{
    const auto passOn = [](const QString& text) { zepa::cli::passOn(zepa::cli::Stream::Output, text.toUtf8()); };
    EXPECT_EQ(onOutput([&] { passOn(QStringLiteral("a\tb\n") + steering + u'\n'); }), "a\tb\n" + shown + "\n");
    EXPECT_EQ(onOutput([&] { passOn(QStringLiteral("Gr\u00FC\u00DFe \u4E2D \U0001F600 \\u001b\n")); }),
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
    const QJsonObject object{{QStringLiteral("x"), steering}};
    for (const std::string& text :
         {onOutput([&] { zepa::cli::sayJsonLine(object); }), onOutput([&] { zepa::cli::sayJson({object}); })}) {
        const QByteArray bytes = QByteArray::fromStdString(text);
        EXPECT_EQ(QString::fromUtf8(bytes).count(QRegularExpression(QStringLiteral("[^\n -~]"))), 0) << text;
        const QJsonDocument read = QJsonDocument::fromJson(bytes);
        EXPECT_EQ((read.isArray() ? read.array().at(0) : QJsonValue(read.object()))[QStringLiteral("x")].toString(),
                  steering);
    }
}

TEST(Output, OfTheLogSteersNothing)
{
    zepa::cli::filterLog();
    testing::internal::CaptureStderr();
    qWarning("%s", qUtf8Printable(QStringLiteral("one\ntwo ") + steering));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "one\ntwo " + shown + "\n");
}

} // namespace
