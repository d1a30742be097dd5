// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QJsonDocument>
#include <QJsonObject>

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
        return run(QStringList{QStringLiteral("play"), QStringLiteral("-")} + options, script);
    }
};

TEST_F(ProgramPlay, PrintsWhatWasPostedDeliveredAndDropped)
{
    const Outcome outcome = play(good);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    const QStringList lines = outcome.lines();
    ASSERT_EQ(lines.size(), 9) << outcome.out.toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("posted     message_received  \"Anna\"")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("delivered  message_received  \"Anna\"")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("no pop-up shown")));
    EXPECT_TRUE(lines[3].endsWith(QStringLiteral("dropped    message_received  \"Anna\"  a repeat")));
    EXPECT_TRUE(lines[5].endsWith(QStringLiteral("dropped    message_sent  \"Bob\"  no rule")));
    EXPECT_TRUE(lines[7].contains(QStringLiteral("\"\\u001b[31mred\\nline\"")));
    EXPECT_EQ(lines[8],
              QStringLiteral("summary: 4 posted, 2 delivered, 1 dropped as repeats, 1 without a rule; pop-ups "
                             "with an action: 0 clicked, 0 timed out, 0 unanswered"));
    EXPECT_FALSE((outcome.out + outcome.err).contains(QStringLiteral("mySecretWord")));
}

TEST_F(ProgramPlay, PrintsOneObjectALineForPrograms)
{
    QStringList events;
    const Outcome outcome = play(good, {QStringLiteral("--json")});
    for (const QString& line : outcome.lines()) {
        const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8());
        ASSERT_TRUE(document.isObject()) << line.toStdString();
        events.append(document[QStringLiteral("event")].toString());
    }
    EXPECT_EQ(events.join(u' '),
              QStringLiteral("posted delivered posted dropped posted dropped posted delivered summary"));
}

TEST_F(ProgramPlay, FollowsTheSettingForRepeats)
{
    ASSERT_EQ(run({QStringLiteral("setting"), QStringLiteral("set"), QStringLiteral("duplicated_notifications_time"),
                   QStringLiteral("0")})
                  .code,
              0);
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna"}
{"at": 1.2, "type": "message_received", "title": "Anna"})");
    EXPECT_TRUE(outcome.lines().constLast().startsWith(QStringLiteral("summary: 2 posted, 2 delivered")))
        << outcome.out.toStdString();
}

TEST_F(ProgramPlay, PlaysNothingOfAScriptWithABadLine)
{
    const Outcome outcome = play(good + "{\"type\": \"nope\", \"title\": \"x\"}\n");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.out.isEmpty()) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("standard input:6: field \"type\": unknown notification type "
                                                    "\"nope\"; must be one of: alert_received_notify")))
        << outcome.err.toStdString();
}

TEST_F(ProgramPlay, ReadsAFileAndThePicturesBesideIt)
{
    write(QStringLiteral("a.png"), "not really");
    write(QStringLiteral("script.jsonl"), R"({"type": "message_received", "title": "x", "icon": "a.png"})");
    EXPECT_EQ(run({QStringLiteral("play"), QStringLiteral("script.jsonl")}).code, 0);
    write(QStringLiteral("script.jsonl"), R"({"type": "message_received", "title": "x", "icon": "b.png"})");
    const Outcome outcome = run({QStringLiteral("play"), inFolder(QStringLiteral("script.jsonl"))});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(inFolder(QStringLiteral("b.png")))) << outcome.err.toStdString();
}

TEST_F(ProgramPlay, RefusesAScriptThatCannotBeRead)
{
    for (const QString& name : {QStringLiteral("nope.jsonl"), QStringLiteral("."), QStringLiteral("/dev/null")})
        EXPECT_EQ(run({QStringLiteral("play"), name}).code, 2) << name.toStdString();
}

TEST_F(ProgramPlay, PlaysAnEmptyScript)
{
    const Outcome outcome = play({});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 1);
}

TEST_F(ProgramPlay, TakesWaitWithAndWithoutSeconds)
{
    const QString wait = QStringLiteral("--wait");
    EXPECT_EQ(play(good, {wait}).code, 0);
    EXPECT_EQ(play(good, {wait, QStringLiteral("0.5")}).code, 0);
    EXPECT_EQ(play(good, {QStringLiteral("--wait=3")}).code, 0);
    EXPECT_EQ(run({QStringLiteral("play"), wait, QStringLiteral("-")}, good).code, 0);
    EXPECT_EQ(play(good, {QStringLiteral("--wait=soon")}).code, 2);
    EXPECT_EQ(play(good, {QStringLiteral("--wait=-1")}).code, 2);
    EXPECT_EQ(play(good, {QStringLiteral("--wait=nan")}).code, 2);
}

TEST_F(ProgramPlay, OpensChatWindowsAlsoWhereNobodySeesThem)
{
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna", "text": "Hi", "buddy": "Anna"}
{"type": "message_sent", "title": "Anna", "text": "Hello", "buddy": "Anna"}
{"type": "alert_received_notify", "title": "Anna", "text": "Anna rings", "buddy": "Anna"})",
                                 {QStringLiteral("--chats")});
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.lines().constLast().startsWith(QStringLiteral("summary: 3 posted, 2 delivered")))
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
    run({QStringLiteral("types")});
    write(QStringLiteral("settings/notifications/message_received"), rules + "</rules>");
    const Outcome outcome = play(R"({"type": "message_received", "title": "Anna"})");
    EXPECT_TRUE(outcome.lines().value(1).contains(
        QStringLiteral("zepa_hint_notification, zepa_dock_bounce_notification_method, zepa_hint_notification, "
                       "zepa_sound_notification_method")))
        << outcome.out.toStdString() << outcome.err.toStdString();
}

} // namespace
