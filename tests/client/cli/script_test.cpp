// SPDX-License-Identifier: Apache-2.0
#include "client/cli/script.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::cli::Script;

Script read(const QByteArray& content, const QString& folder = u"/nonexistent"_s)
{
    return zepa::cli::readScript(content, u"demo.jsonl"_s, {folder, folder}, {u"email_notify"_s, u"logged_in"_s});
}

std::string onlyProblem(const QByteArray& content)
{
    const Script script = read(content);
    return script.problems.size() == 1
               ? script.problems.constFirst().toStdString()
               : std::to_string(script.problems.size()) + " problems: " + script.problems.join(u'\n').toStdString();
}

TEST(ScriptTest, ReadsEveryField)
{
    QTemporaryDir folder;
    QFile picture(folder.filePath(u"p.png"_s));
    ASSERT_TRUE(picture.open(QIODevice::WriteOnly));
    const Script script = read(R"({"at":1.5,"type":"logged_in","title":"T","text":"X","icon":"p.png","buddy":"B",)"
                               R"("action":"https://example.org/a?b=c"})",
                               folder.path());
    ASSERT_TRUE(script.problems.isEmpty()) << script.problems.constFirst().toStdString();
    ASSERT_EQ(script.events.size(), 1);
    const zepa::cli::Event& event = script.events.constFirst();
    EXPECT_EQ(event.at, 1.5);
    EXPECT_EQ(event.type, u"logged_in"_s);
    EXPECT_EQ(event.title, u"T"_s);
    EXPECT_EQ(event.text, u"X"_s);
    EXPECT_EQ(event.icon, picture.fileName());
    EXPECT_EQ(event.buddy, u"B"_s);
    EXPECT_EQ(event.action, u"https://example.org/a?b=c"_s);
}

TEST(ScriptTest, LeavesFieldsThatAreNotGivenNull)
{
    const Script script = read(R"({"type":"logged_in","title":""})");
    ASSERT_EQ(script.events.size(), 1);
    EXPECT_FALSE(script.events[0].title.isNull());
    EXPECT_TRUE(script.events[0].text.isNull());
    EXPECT_TRUE(script.events[0].buddy.isNull());
    EXPECT_TRUE(script.events[0].action.isNull());
}

TEST(ScriptTest, TakesTheTimeOfTheLineAboveWhereNoneIsGiven)
{
    const Script script = read("{\"type\":\"logged_in\",\"title\":\"a\"}\r\n\n"
                               "{\"at\":2,\"type\":\"logged_in\",\"title\":\"b\"}\n"
                               "{\"type\":\"logged_in\",\"title\":\"c\"}");
    ASSERT_EQ(script.events.size(), 3);
    EXPECT_EQ(script.events[0].at, 0);
    EXPECT_EQ(script.events[1].at, 2);
    EXPECT_EQ(script.events[2].at, 2);
}

TEST(ScriptTest, NamesFileLineFieldAndWhatIsAllowed)
{
    EXPECT_EQ(onlyProblem("\n\n{\"type\":\"x\",\"title\":\"a\"}"),
              "demo.jsonl:3: field \"type\": unknown notification type \"x\"; must be one of: email_notify, "
              "logged_in");
    EXPECT_EQ(onlyProblem(R"({"title":"a"})"),
              "demo.jsonl:1: field \"type\": required field is missing; must be one of: email_notify, logged_in");
    EXPECT_EQ(onlyProblem(R"({"type":"logged_in"})"), "demo.jsonl:1: field \"title\": required field is missing");
    EXPECT_EQ(onlyProblem(R"({"type":"logged_in","title":"a","text":7})"),
              "demo.jsonl:1: field \"text\": expected a string, got 7");
    EXPECT_EQ(onlyProblem(R"({"type":"logged_in","title":"a","txt":"b"})"),
              "demo.jsonl:1: field \"txt\": unknown field; known fields: at, type, title, text, icon, buddy, action");
    EXPECT_EQ(onlyProblem(R"({"type":"logged_in","title":"a","icon":"p.png"})"),
              "demo.jsonl:1: field \"icon\": image /nonexistent/p.png not found; use an absolute path or one "
              "relative to the script");
    EXPECT_EQ(onlyProblem(R"({"type":"logged_in","title":"a","action":"no-such-program x"})"),
              "demo.jsonl:1: field \"action\": program \"no-such-program\" not found; give a URL or a command");
}

TEST(ScriptTest, RefusesTimesThatGoBackOrAreNone)
{
    EXPECT_EQ(onlyProblem("{\"at\":2,\"type\":\"logged_in\",\"title\":\"a\"}\n"
                          "{\"at\":1.5,\"type\":\"logged_in\",\"title\":\"a\"}"),
              "demo.jsonl:2: field \"at\": 1.5 is not valid; expected seconds between 2 (previous line) and 86400");
    for (const char* at : {"-1", "86401", "1e300", "\"1\"", "null", "true", "[]", "{}"}) {
        const Script script = read("{\"at\":" + QByteArray(at) + ",\"type\":\"logged_in\",\"title\":\"a\"}");
        ASSERT_EQ(script.problems.size(), 1) << at;
        EXPECT_TRUE(script.problems[0].contains(u"field \"at\""_s)) << at;
    }
}

TEST(ScriptTest, RefusesLinesThatAreNoObject)
{
    for (const QByteArray& line :
         {QByteArray("["), QByteArray("[]"), QByteArray("7"), QByteArray("{"), QByteArray("{} {}"), QByteArray("\xFF"),
          QByteArray("{\"type\":\"\xC3\"}"), QByteArray("# note"), QByteArray("\0", 1), QByteArray(1000000, '['),
          QByteArray("{\"a\":").repeated(100000)}) {
        const Script script = read(line);
        ASSERT_EQ(script.problems.size(), 1) << line.left(20).constData();
        EXPECT_TRUE(script.problems[0].startsWith(u"demo.jsonl:1: not a JSON object: "_s) ||
                    script.problems[0] == u"demo.jsonl:1: expected one JSON object per line, got a list"_s)
            << script.problems[0].toStdString();
        EXPECT_LT(script.problems[0].size(), 400);
    }
}

TEST(ScriptTest, NamesEveryProblem)
{
    EXPECT_EQ(read("{\"type\":1,\"title\":2,\"foo\":3}\n[]\n\n{\"type\":\"x\"}").problems.size(), 6);
}

TEST(ScriptTest, NamesTwentyProblemsAndCountsTheRest)
{
    const Script exact = read(QByteArray("{\"title\":\"a\"}\n").repeated(20));
    EXPECT_EQ(exact.problems.size(), 20);
    const Script flood = read(QByteArray("{}\n").repeated(10000));
    ASSERT_EQ(flood.problems.size(), 21);
    EXPECT_EQ(flood.problems[19], u"demo.jsonl:10: field \"title\": required field is missing"_s);
    EXPECT_EQ(flood.problems[20], u"demo.jsonl: and 19980 more"_s);
}

TEST(ScriptTest, KeepsNoEventsBesideProblems)
{
    const QByteArray good("{\"type\":\"logged_in\",\"title\":\"a\"}\n");
    const Script script = read(good.repeated(100) + "{}\n" + good.repeated(100));
    EXPECT_EQ(script.problems.size(), 2);
    EXPECT_TRUE(script.events.isEmpty());
}

TEST(ScriptTest, KeepsTheNameOfATypeOnce)
{
    const Script script = read(QByteArray("{\"type\":\"logged_in\",\"title\":\"a\"}\n").repeated(2));
    ASSERT_EQ(script.events.size(), 2);
    EXPECT_EQ(script.events[0].type.constData(), script.events[1].type.constData());
}

TEST(ScriptTest, RefusesLongLines)
{
    const QByteArray start("{\"type\":\"logged_in\",\"title\":\"");
    const QByteArray longest = start + QByteArray(zepa::cli::longestLine - start.size() - 2, 'x') + "\"}";
    EXPECT_EQ(read(longest).events.size(), 1);
    EXPECT_EQ(onlyProblem(longest + '}'), "demo.jsonl:1: the line has 1048577 bytes (limit 1048576)");
}

TEST(ScriptTest, IsReadInPieces)
{
    zepa::cli::ScriptReader reader(QByteArray("{}\n").repeated(10000), u"demo.jsonl"_s, {}, {});
    int pieces = 1;
    while (reader.readOn())
        ++pieces;
    EXPECT_GE(pieces, 10);
    EXPECT_EQ(reader.take().problems.constLast(), u"demo.jsonl: and 19980 more"_s);
}

TEST(ScriptTest, KeepsMessagesOnOneLine)
{
    const std::string problem = onlyProblem("{\"type\":\"x\\n\\u001b[2J\",\"title\":\"a\"}");
    EXPECT_EQ(problem.find('\n'), std::string::npos);
    EXPECT_EQ(problem.find('\x1b'), std::string::npos);
}

} // namespace
