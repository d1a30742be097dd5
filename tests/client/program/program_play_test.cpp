// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QByteArray good = R"({"type": "message_received", "title": "Anna", "text": "mySecretWord", "buddy": "Anna"}

{"at": 0.05, "type": "message_received", "title": "Anna"}
{"type": "message_sent", "title": "Bob"}
{"at": 0.1, "type": "message_received", "title": "\u001b[31mred\nline"}
)";

class ProgramPlay : public Program
{
protected:
    Outcome play(const QByteArray& script, const QStringList& options = {})
    {
        return run(QStringList{u"play"_s, u"-"_s} + options, script);
    }
};

TEST_F(ProgramPlay, PrintsWhatWasPostedDeliveredAndDropped)
{
    const Outcome outcome = play(good);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    const QStringList lines = outcome.lines();
    ASSERT_EQ(lines.size(), 9) << outcome.out.toStdString();
    EXPECT_TRUE(lines[0].contains(u"posted     message_received  \"Anna\""_s));
    EXPECT_TRUE(lines[1].contains(u"delivered  message_received  \"Anna\""_s));
    EXPECT_TRUE(lines[1].contains(u"no pop-up shown"_s));
    EXPECT_TRUE(lines[3].endsWith(u"dropped    message_received  \"Anna\"  a repeat"_s));
    EXPECT_TRUE(lines[5].endsWith(u"dropped    message_sent  \"Bob\"  no rule"_s));
    EXPECT_TRUE(lines[7].contains(u"\"\\u001b[31mred\\nline\""_s));
    EXPECT_EQ(lines[8], u"summary: 4 posted, 2 delivered, 1 dropped as repeats, 1 without a rule; pop-ups "
                        u"with an action: 0 clicked, 0 timed out, 0 unanswered"_s);
    EXPECT_FALSE((outcome.out + outcome.err).contains(u"mySecretWord"_s));
}

TEST_F(ProgramPlay, PrintsOneObjectALineForPrograms)
{
    QStringList events;
    const Outcome outcome = play(good, {u"--json"_s});
    for (const QString& line : outcome.lines()) {
        const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8());
        ASSERT_TRUE(document.isObject()) << line.toStdString();
        events.append(document[u"event"_s].toString());
    }
    EXPECT_EQ(events.join(u' '), u"posted delivered posted dropped posted dropped posted delivered summary"_s);
}

TEST_F(ProgramPlay, FollowsTheSettingForRepeats)
{
    ASSERT_EQ(run({u"setting"_s, u"set"_s, u"duplicated_notifications_time"_s, u"0"_s}).code, 0);
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna"}
{"at": 1.2, "type": "message_received", "title": "Anna"})");
    EXPECT_TRUE(outcome.lines().constLast().startsWith(u"summary: 2 posted, 2 delivered"_s))
        << outcome.out.toStdString();
}

TEST_F(ProgramPlay, PlaysNothingOfAScriptWithABadLine)
{
    const Outcome outcome = play(good + "{\"type\": \"nope\", \"title\": \"x\"}\n");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.out.isEmpty()) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.err.contains(u"standard input:6: field \"type\": unknown notification type "
                                     u"\"nope\"; must be one of: alert_received_notify"_s))
        << outcome.err.toStdString();
}

TEST_F(ProgramPlay, ReadsAFileAndThePicturesBesideIt)
{
    write(u"a.png"_s, "not really");
    write(u"script.jsonl"_s, R"({"type": "message_received", "title": "x", "icon": "a.png"})");
    EXPECT_EQ(run({u"play"_s, u"script.jsonl"_s}).code, 0);
    write(u"script.jsonl"_s, R"({"type": "message_received", "title": "x", "icon": "b.png"})");
    const Outcome outcome = run({u"play"_s, inFolder(u"script.jsonl"_s)});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(inFolder(u"b.png"_s))) << outcome.err.toStdString();
}

TEST_F(ProgramPlay, RefusesAScriptThatCannotBeRead)
{
    for (const QString& name : {u"nope.jsonl"_s, u"."_s, u"/dev/null"_s})
        EXPECT_EQ(run({u"play"_s, name}).code, 2) << name.toStdString();
}

TEST_F(ProgramPlay, PlaysAnEmptyScript)
{
    const Outcome outcome = play({});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 1);
}

TEST_F(ProgramPlay, TakesWaitWithAndWithoutSeconds)
{
    const QString wait = u"--wait"_s;
    EXPECT_EQ(play(good, {wait}).code, 0);
    EXPECT_EQ(play(good, {wait, u"0.5"_s}).code, 0);
    EXPECT_EQ(play(good, {u"--wait=3"_s}).code, 0);
    EXPECT_EQ(run({u"play"_s, wait, u"-"_s}, good).code, 0);
    EXPECT_EQ(play(good, {u"--wait=soon"_s}).code, 2);
    EXPECT_EQ(play(good, {u"--wait=-1"_s}).code, 2);
    EXPECT_EQ(play(good, {u"--wait=nan"_s}).code, 2);
}

TEST_F(ProgramPlay, OpensChatWindowsAlsoWhereNobodySeesThem)
{
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna", "text": "Hi", "buddy": "Anna"}
{"type": "message_sent", "title": "Anna", "text": "Hello", "buddy": "Anna"}
{"type": "alert_received_notify", "title": "Anna", "text": "Anna rings", "buddy": "Anna"})",
                                 {u"--chats"_s});
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.lines().constLast().startsWith(u"summary: 3 posted, 2 delivered"_s))
        << outcome.out.toStdString();
}

TEST_F(ProgramPlay, NamesTheMethodsInTheOrderOfTheirCalls)
{
    // The rule that is read last is the newest, and called first.
    const QByteArray config = "<config/>";
    QByteArray rules = "<rules>";
    for (const QByteArray method : {"zepa_sound_notification_method", "zepa_hint_notification",
                                    "zepa_dock_bounce_notification_method", "zepa_hint_notification"})
        rules += '<' + method + '>' + config + "</" + method + '>';
    run({u"types"_s});
    write(u"settings/notifications/message_received"_s, rules + "</rules>");
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna"})");
    EXPECT_TRUE(outcome.lines().value(1).contains(
        u"zepa_hint_notification, zepa_dock_bounce_notification_method, zepa_hint_notification, "
        u"zepa_sound_notification_method"_s))
        << outcome.out.toStdString() << outcome.err.toStdString();
}

} // namespace
