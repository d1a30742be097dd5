// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>

#include <csignal>

namespace {

const QString post = QStringLiteral("post");
const QString play = QStringLiteral("play");
const QString input = QStringLiteral("-");
const QString waits = QStringLiteral("--wait");

QStringList postTo(const QString& title, const QStringList& rest = {})
{
    return QStringList{post, QStringLiteral("message_received"), QStringLiteral("--title"), title} + rest;
}

/// Command lines of second starts.
class HandedOverTest : public InstanceTest
{};

TEST_F(HandedOverTest, HappensInTheFirstProcess)
{
    startFirst();
    EXPECT_TRUE(run(postTo(QStringLiteral("Anna"))).out.startsWith(QStringLiteral("delivered by ")));
    // Only a process that remembers the first posting can know.
    const Outcome second = run(postTo(QStringLiteral("Anna")));
    EXPECT_TRUE(second.err.contains(QStringLiteral("dropped as a repeat"))) << second.err.toStdString();
}

TEST_F(HandedOverTest, PrintsAndEndsAsIfItWereAlone)
{
    const QList<QStringList> lines{{QStringLiteral("types")},
                                   {QStringLiteral("rules"), QStringLiteral("no_such_type")},
                                   {QStringLiteral("setting"), QStringLiteral("get"), QStringLiteral("--json")},
                                   {QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("message_sent"),
                                    QStringLiteral("zepa_dock_bounce_notification_method")}};
    QList<Outcome> alone;
    for (const QStringList& line : lines)
        alone.append(run(line));
    startFirst();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Outcome handed = run(lines[i]);
        EXPECT_EQ(handed.code, alone[i].code);
        EXPECT_EQ(handed.out, alone[i].out);
        EXPECT_EQ(handed.err, alone[i].err);
    }
}

TEST_F(HandedOverTest, ChangesTheRulesThatTheFirstHas)
{
    startFirst();
    const QStringList rule{QStringLiteral("message_sent"), QStringLiteral("zepa_hint_notification")};
    EXPECT_EQ(run(QStringList{QStringLiteral("rule"), QStringLiteral("set")} + rule).code, 0);
    EXPECT_TRUE(read(QStringLiteral("settings/notifications/message_sent")).contains("zepa_hint_notification"));
    EXPECT_TRUE(run({QStringLiteral("rules"), QStringLiteral("message_sent")}).out.contains(rule[1]));
}

TEST_F(HandedOverTest, FindsFilesWhereTheSecondWasStarted)
{
    startFirst();
    QDir(inFolder(QString())).mkdir(QStringLiteral("scripts"));
    write(QStringLiteral("scripts/one.jsonl"), R"({"type": "info_notify", "title": "t", "icon": "dot.png"})");
    QImage dot(1, 1, QImage::Format_RGB32);
    dot.fill(Qt::red);
    ASSERT_TRUE(dot.save(inFolder(QStringLiteral("scripts/dot.png"))));
    const Outcome played = run({play, QStringLiteral("scripts/one.jsonl")});
    EXPECT_EQ(played.code, 0) << played.err.toStdString();

    const QStringList icon{QStringLiteral("--icon"), QStringLiteral("scripts/dot.png")};
    const Outcome posted = run(postTo(QStringLiteral("Anna"), icon));
    EXPECT_FALSE(posted.err.contains(QStringLiteral("cannot read image"))) << posted.err.toStdString();
}

TEST_F(HandedOverTest, TakesTheSecondsStandardInput)
{
    startFirst();
    const Outcome played = run({play, input}, R"({"type": "info_notify", "title": "from standard input"})");
    EXPECT_EQ(played.code, 0);
    EXPECT_TRUE(played.out.contains(QStringLiteral("from standard input"))) << played.out.toStdString();
    EXPECT_EQ(run({play, input}, "no script").code, 2);
    EXPECT_EQ(run({play, QStringLiteral("no-such-file")}).code, 2);
}

TEST_F(HandedOverTest, StartsTheActionInTheSecondsFolder)
{
    const auto service = startService({QStringLiteral("click-last")});
    startFirst();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    EXPECT_EQ(
        run(postTo(QStringLiteral("Anna"), {QStringLiteral("--action"), QStringLiteral("touch here"), waits})).code, 0);
    EXPECT_TRUE(waitFor([this] { return QFile::exists(inFolder(QStringLiteral("here"))); }));
}

TEST_F(HandedOverTest, StartsAScriptsActionInTheSecondsFolderToo)
{
    const auto service = startService({QStringLiteral("click-last")});
    startFirst();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    write(QStringLiteral("program"), "#!/bin/sh\ntouch here\n");
    ASSERT_TRUE(QFile::setPermissions(inFolder(QStringLiteral("program")), QFile::ReadOwner | QFile::ExeOwner));
    QDir(inFolder(QString())).mkdir(QStringLiteral("scripts"));
    write(QStringLiteral("scripts/one.jsonl"), R"({"type": "info_notify", "title": "t", "action": "./program"})");
    const Outcome played = run({play, QStringLiteral("scripts/one.jsonl"), waits});
    EXPECT_EQ(played.code, 0) << played.err.toStdString();
    EXPECT_TRUE(waitFor([this] { return QFile::exists(inFolder(QStringLiteral("here"))); }));
    EXPECT_FALSE(QFile::exists(inFolder(QStringLiteral("scripts/here"))));
}

TEST_F(HandedOverTest, TellsEachCallerOfItsOwnAnswer)
{
    const auto service = startService();
    startFirst();
    const auto anna = start(postTo(QStringLiteral("Anna"), {waits}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    const auto ben = start(postTo(QStringLiteral("Ben"), {waits}));
    ASSERT_TRUE(waitForPopups(*service, 2));
    service->tell(QStringLiteral("click 1"));
    // The one that was asked for first is answered first, whatever still waits.
    const Outcome clicked = finish(*anna);
    EXPECT_EQ(clicked.code, 0);
    EXPECT_EQ(clicked.lines().constLast(), QStringLiteral("clicked"));
    EXPECT_EQ(ben->state(), QProcess::Running);
    service->tell(QStringLiteral("close 2"));
    EXPECT_EQ(finish(*ben).code, 3);
}

TEST_F(HandedOverTest, EndsWithTheOneWhoAskedForIt)
{
    const auto service = startService();
    startFirst();
    const auto player = start({play, input}, R"({"type": "info_notify", "title": "first"}
{"at": 1, "type": "info_notify", "title": "second"})");
    ASSERT_TRUE(waitForPopups(*service, 1));
    ::kill(static_cast<pid_t>(player->processId()), SIGINT);
    player->waitForFinished();
    // By the time of the third, the second would have been there.
    run({play, input}, R"({"at": 1.5, "type": "info_notify", "title": "third"})");
    ASSERT_TRUE(waitForPopups(*service, 2));
    for (const QJsonObject& popup : service->calls())
        EXPECT_FALSE(QJsonDocument(popup).toJson().contains("second"));
}

TEST_F(HandedOverTest, SaysThatTheFirstEndedMeanwhile)
{
    const auto service = startService();
    startFirst();
    const auto waiting = start(postTo(QStringLiteral("Anna"), {waits}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    endFirst();
    const Outcome outcome = finish(*waiting);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("the running client ended before"))) << outcome.err.toStdString();
}

TEST_F(HandedOverTest, IsNotDoneLaterByAFirstThatDidNotAnswer)
{
    const auto service = startService();
    startFirst();
    ASSERT_EQ(run(postTo(QStringLiteral("Anna"))).code, 0);
    ::kill(static_cast<pid_t>(first().processId()), SIGSTOP);
    const Outcome outcome = run(postTo(QStringLiteral("Ben")));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("is not responding"))) << outcome.err.toStdString();
    ::kill(static_cast<pid_t>(first().processId()), SIGCONT);
    ASSERT_EQ(run(postTo(QStringLiteral("Carla"))).code, 0);
    ASSERT_TRUE(waitForPopups(*service, 2));
    for (const QJsonObject& popup : service->calls())
        EXPECT_FALSE(QJsonDocument(popup).toJson().contains("Ben"));
}

} // namespace
