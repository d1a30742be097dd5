// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QFile>

#include <sys/stat.h>

namespace {

QStringList post(const QStringList& rest)
{
    return QStringList{QStringLiteral("post"), QStringLiteral("message_received")} + rest;
}

const QString title = QStringLiteral("--title");

class ProgramPost : public Program
{};

TEST_F(ProgramPost, SaysWhichMethodsWereCalledAndWhatCouldNotBeDone)
{
    const Outcome outcome = run(post({title, QStringLiteral("Anna"), QStringLiteral("--text"), QStringLiteral("Hi")}));
    EXPECT_EQ(outcome.code, 0);
    ASSERT_EQ(outcome.lines().size(), 1) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.startsWith(QStringLiteral("delivered by ")));
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("zepa_hint_notification")));
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("zepa_sound_notification_method")));
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("no notification service: no pop-up shown")))
        << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("no display"))) << outcome.err.toStdString();
}

TEST_F(ProgramPost, NeverWritesTheTextOfTheMessage)
{
    const Outcome outcome =
        run(post({title, QStringLiteral("Anna"), QStringLiteral("--text"), QStringLiteral("mySecretWord")}));
    EXPECT_FALSE((outcome.out + outcome.err).contains(QStringLiteral("mySecretWord")));
}

TEST_F(ProgramPost, RunsWithoutDisplayVariables)
{
    for (const QString& name : {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("DISPLAY"),
                                QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("TZ")})
        environment.remove(name);
    EXPECT_EQ(run(post({title, QStringLiteral("Anna")})).code, 0);
    EXPECT_EQ(run({QStringLiteral("types")}).code, 0);
}

TEST_F(ProgramPost, RunsWithADisplayThatIsNotThere)
{
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":987654"));
    const Outcome outcome = run(post({title, QStringLiteral("Anna")}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("no display"))) << outcome.err.toStdString();
}

TEST_F(ProgramPost, WaitsForNothingWhereNoPopUpIsShownAndSaysWhy)
{
    const Outcome noService = run(post({title, QStringLiteral("Anna"), QStringLiteral("--wait")}));
    EXPECT_EQ(noService.code, 4);
    EXPECT_TRUE(noService.lines().constLast().startsWith(QStringLiteral("not shown: no session bus")))
        << noService.out.toStdString();

    ASSERT_EQ(run({QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("message_received"),
                   QStringLiteral("zepa_hint_notification")})
                  .code,
              0);
    const Outcome noRule = run(post({title, QStringLiteral("Anna"), QStringLiteral("--wait")}));
    EXPECT_EQ(noRule.code, 4);
    EXPECT_EQ(noRule.lines().constLast(),
              QStringLiteral("not shown: no rule for message_received and zepa_hint_notification"));
}

TEST_F(ProgramPost, SaysWhenNoRuleAnnouncesTheType)
{
    const Outcome outcome =
        run({QStringLiteral("post"), QStringLiteral("message_sent"), title, QStringLiteral("Anna")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.isEmpty());
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("zepa rule set message_sent METHOD"))) << outcome.err.toStdString();
}

TEST_F(ProgramPost, RefusesWhatCannotBePosted)
{
    EXPECT_EQ(run({QStringLiteral("post"), QStringLiteral("nope"), title, QStringLiteral("x")}).code, 2);
    const Outcome untitled = run(post({}));
    EXPECT_EQ(untitled.code, 2);
    EXPECT_TRUE(untitled.err.contains(QStringLiteral("--title"))) << untitled.err.toStdString();
    for (const QString& action : {QString(), QStringLiteral("  "), QStringLiteral("no-such-program --x")}) {
        const Outcome outcome = run(post({title, QStringLiteral("x"), QStringLiteral("--action"), action}));
        EXPECT_EQ(outcome.code, 2) << action.toStdString();
        EXPECT_TRUE(outcome.err.contains(QStringLiteral("give a URL or a command"))) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty());
    }
}

TEST_F(ProgramPost, PostsWithoutAPictureThatCannotBeRead)
{
    const Outcome outcome = run(post({title, QStringLiteral("x"), QStringLiteral("--icon"), QStringLiteral("no.png")}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("cannot read image no.png"))) << outcome.err.toStdString();
}

TEST_F(ProgramPost, SaysWhyAPictureIsNotShownAndNeverWaitsForOne)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(inFolder(QStringLiteral("pipe.png"))).constData(), 0600), 0);
    // Without its ending, too: Qt looks for it.
    for (const QString& name : {QStringLiteral("pipe.png"), QStringLiteral("pipe"), QStringLiteral("/dev/zero")}) {
        const Outcome outcome = run(post({title, QStringLiteral("x"), QStringLiteral("--icon"), name}));
        EXPECT_EQ(outcome.code, 0) << name.toStdString();
        const QString expected = QStringLiteral("cannot read image %1 (not a regular file)").arg(name);
        EXPECT_TRUE(outcome.err.contains(expected)) << outcome.err.toStdString();
    }
}

TEST_F(ProgramPost, WarnsThatAnActionNeedsToBeWaitedFor)
{
    const Outcome outcome = run(post({title, QStringLiteral("x"), QStringLiteral("--action"), QStringLiteral("true")}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("--wait"))) << outcome.err.toStdString();
}

TEST_F(ProgramPost, TakesABuddyAndAnAlert)
{
    const Outcome outcome = run({QStringLiteral("post"), QStringLiteral("alert_received_notify"), title,
                                 QStringLiteral("x"), QStringLiteral("--buddy"), QStringLiteral("Anna")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("zepa_chat_window_notification_method")));
    // Without anybody who sent it, too.
    EXPECT_EQ(run({QStringLiteral("post"), QStringLiteral("alert_received_notify"), title, QStringLiteral("x")}).code,
              0);
}

} // namespace
