// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString post = u"post"_s;
const QString play = u"play"_s;
const QString input = u"-"_s;
const QString waits = u"--wait"_s;

QStringList postTo(const QString& title, const QStringList& rest = {})
{
    return QStringList{post, u"message_received"_s, u"--title"_s, title} + rest;
}

/// Command lines of second starts.
class HandedOverTest : public InstanceTest
{};

TEST_F(HandedOverTest, HappensInTheFirstProcess)
{
    startFirst();
    EXPECT_TRUE(run(postTo(u"Anna"_s)).out.startsWith(u"handed to: "_s));
    // Only a process that remembers the first posting can know.
    const Outcome second = run(postTo(u"Anna"_s));
    EXPECT_TRUE(second.err.contains(u"skipped as a repeat"_s)) << second.err.toStdString();
}

TEST_F(HandedOverTest, PrintsAndEndsAsIfItWereAlone)
{
    const QList<QStringList> lines{
        {u"types"_s},
        {u"rules"_s, u"no_such_type"_s},
        {u"setting"_s, u"get"_s, u"--json"_s},
        {u"rule"_s, u"remove"_s, u"message_sent"_s, u"zepa_dock_bounce_notification_method"_s}};
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
    const QStringList rule{u"message_sent"_s, u"zepa_hint_notification"_s};
    EXPECT_EQ(run(QStringList{u"rule"_s, u"set"_s} + rule).code, 0);
    EXPECT_TRUE(read(u"settings/notifications/message_sent"_s).contains("zepa_hint_notification"));
    EXPECT_TRUE(run({u"rules"_s, u"message_sent"_s}).out.contains(rule[1]));
}

TEST_F(HandedOverTest, FindsFilesWhereTheSecondWasStarted)
{
    startFirst();
    QDir(inFolder(QString())).mkdir(u"scripts"_s);
    write(u"scripts/one.jsonl"_s, R"({"type": "info_notify", "title": "t", "icon": "dot.png"})");
    QImage dot(1, 1, QImage::Format_RGB32);
    dot.fill(Qt::red);
    ASSERT_TRUE(dot.save(inFolder(u"scripts/dot.png"_s)));
    const Outcome played = run({play, u"scripts/one.jsonl"_s});
    EXPECT_EQ(played.code, 0) << played.err.toStdString();

    const QStringList icon{u"--icon"_s, u"scripts/dot.png"_s};
    const Outcome posted = run(postTo(u"Anna"_s, icon));
    EXPECT_FALSE(posted.err.contains(u"cannot read image"_s)) << posted.err.toStdString();
}

TEST_F(HandedOverTest, TakesTheSecondsStandardInput)
{
    startFirst();
    const Outcome played = run({play, input}, R"({"type": "info_notify", "title": "from standard input"})");
    EXPECT_EQ(played.code, 0);
    EXPECT_TRUE(played.out.contains(u"from standard input"_s)) << played.out.toStdString();
    EXPECT_EQ(run({play, input}, "no script").code, 2);
    EXPECT_EQ(run({play, u"no-such-file"_s}).code, 2);
}

TEST_F(HandedOverTest, StartsTheActionInTheSecondsFolder)
{
    const auto service = startService({u"click-last"_s});
    startFirst();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    EXPECT_EQ(run(postTo(u"Anna"_s, {u"--action"_s, u"touch here"_s, waits})).code, 0);
    EXPECT_TRUE(waitFor([this] { return QFile::exists(inFolder(u"here"_s)); }));
}

TEST_F(HandedOverTest, StartsAScriptsActionInTheSecondsFolderToo)
{
    const auto service = startService({u"click-last"_s});
    startFirst();
    ASSERT_TRUE(waitUntilAcquainted(*service));
    write(u"program"_s, "#!/bin/sh\ntouch here\n");
    ASSERT_TRUE(QFile::setPermissions(inFolder(u"program"_s), QFile::ReadOwner | QFile::ExeOwner));
    QDir(inFolder(QString())).mkdir(u"scripts"_s);
    write(u"scripts/one.jsonl"_s, R"({"type": "info_notify", "title": "t", "action": "./program"})");
    const Outcome played = run({play, u"scripts/one.jsonl"_s, waits});
    EXPECT_EQ(played.code, 0) << played.err.toStdString();
    EXPECT_TRUE(waitFor([this] { return QFile::exists(inFolder(u"here"_s)); }));
    EXPECT_FALSE(QFile::exists(inFolder(u"scripts/here"_s)));
}

TEST_F(HandedOverTest, TellsEachCallerOfItsOwnAnswer)
{
    const auto service = startService();
    startFirst();
    const auto anna = start(postTo(u"Anna"_s, {waits}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    const auto ben = start(postTo(u"Ben"_s, {waits}));
    ASSERT_TRUE(waitForPopups(*service, 2));
    service->tell(u"click 1"_s);
    // The one that was asked for first is answered first, whatever still waits.
    const Outcome clicked = finish(*anna);
    EXPECT_EQ(clicked.code, 0);
    EXPECT_EQ(clicked.lines().constLast(), u"clicked"_s);
    EXPECT_EQ(ben->state(), QProcess::Running);
    service->tell(u"close 2"_s);
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
    const auto waiting = start(postTo(u"Anna"_s, {waits}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    endFirst();
    const Outcome outcome = finish(*waiting);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"the running Zepa quit before"_s)) << outcome.err.toStdString();
}

TEST_F(HandedOverTest, IsNotDoneLaterByAFirstThatDidNotAnswer)
{
    const auto service = startService();
    startFirst();
    ASSERT_EQ(run(postTo(u"Anna"_s)).code, 0);
    ::kill(static_cast<pid_t>(first().processId()), SIGSTOP);
    const Outcome outcome = run(postTo(u"Ben"_s));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"is not responding"_s)) << outcome.err.toStdString();
    ::kill(static_cast<pid_t>(first().processId()), SIGCONT);
    ASSERT_EQ(run(postTo(u"Carla"_s)).code, 0);
    ASSERT_TRUE(waitForPopups(*service, 2));
    for (const QJsonObject& popup : service->calls())
        EXPECT_FALSE(QJsonDocument(popup).toJson().contains("Ben"));
}

} // namespace
