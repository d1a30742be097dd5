// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QStringList post(const QStringList& rest)
{
    return QStringList{u"post"_s, u"message_received"_s} + rest;
}

const QString title = u"--title"_s;

class ProgramPost : public Program
{};

TEST_F(ProgramPost, SaysWhichMethodsWereCalledAndWhatCouldNotBeDone)
{
    const Outcome outcome = run(post({title, u"Anna"_s, u"--text"_s, u"Hi"_s}));
    EXPECT_EQ(outcome.code, 0);
    ASSERT_EQ(outcome.lines().size(), 1) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.startsWith(u"handed to: "_s));
    EXPECT_TRUE(outcome.out.contains(u"zepa_hint_notification"_s));
    EXPECT_TRUE(outcome.out.contains(u"zepa_sound_notification_method"_s));
    EXPECT_TRUE(outcome.err.contains(u"no pop-up shown: no D-Bus session"_s)) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(u"no display"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramPost, NeverWritesTheTextOfTheMessage)
{
    const Outcome outcome = run(post({title, u"Anna"_s, u"--text"_s, u"mySecretWord"_s}));
    EXPECT_FALSE((outcome.out + outcome.err).contains(u"mySecretWord"_s));
}

TEST_F(ProgramPost, RunsWithoutDisplayVariables)
{
    for (const QString& name : {u"QT_QPA_PLATFORM"_s, u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"TZ"_s})
        environment.remove(name);
    EXPECT_EQ(run(post({title, u"Anna"_s})).code, 0);
    EXPECT_EQ(run({u"types"_s}).code, 0);
}

TEST_F(ProgramPost, RunsWithADisplayThatIsNotThere)
{
    environment.remove(u"QT_QPA_PLATFORM"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    environment.insert(u"DISPLAY"_s, u":987654"_s);
    const Outcome outcome = run(post({title, u"Anna"_s}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(u"no display"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramPost, WaitsForNothingWhereNoPopUpIsShownAndSaysWhy)
{
    const Outcome noService = run(post({title, u"Anna"_s, u"--wait"_s}));
    EXPECT_EQ(noService.code, 4);
    EXPECT_TRUE(noService.lines().constLast().startsWith(u"not shown: no D-Bus session"_s))
        << noService.out.toStdString();

    ASSERT_EQ(run({u"rule"_s, u"remove"_s, u"message_received"_s, u"zepa_hint_notification"_s}).code, 0);
    const Outcome noRule = run(post({title, u"Anna"_s, u"--wait"_s}));
    EXPECT_EQ(noRule.code, 4);
    EXPECT_EQ(noRule.lines().constLast(), u"not shown: pop-ups are turned off for message_received"_s);
}

TEST_F(ProgramPost, SaysWhenNoRuleAnnouncesTheType)
{
    const Outcome outcome = run({u"post"_s, u"message_sent"_s, title, u"Anna"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.isEmpty());
    EXPECT_TRUE(outcome.err.contains(u"zepa rule set message_sent METHOD"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramPost, RefusesWhatCannotBePosted)
{
    EXPECT_EQ(run({u"post"_s, u"nope"_s, title, u"x"_s}).code, 2);
    const Outcome untitled = run(post({}));
    EXPECT_EQ(untitled.code, 2);
    EXPECT_TRUE(untitled.err.contains(u"--title"_s)) << untitled.err.toStdString();
    for (const QString& action : {QString(), u"  "_s, u"no-such-program --x"_s}) {
        const Outcome outcome = run(post({title, u"x"_s, u"--action"_s, action}));
        EXPECT_EQ(outcome.code, 2) << action.toStdString();
        EXPECT_TRUE(outcome.err.contains(u"give a URL or a command"_s)) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty());
    }
}

TEST_F(ProgramPost, PostsWithoutAPictureThatCannotBeRead)
{
    const Outcome outcome = run(post({title, u"x"_s, u"--icon"_s, u"no.png"_s}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(u"cannot read image no.png"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramPost, SaysWhyAPictureIsNotShownAndNeverWaitsForOne)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(inFolder(u"pipe.png"_s)).constData(), 0600), 0);
    // Without its ending, too: Qt looks for it.
    for (const QString& name : {u"pipe.png"_s, u"pipe"_s, u"/dev/zero"_s}) {
        const Outcome outcome = run(post({title, u"x"_s, u"--icon"_s, name}));
        EXPECT_EQ(outcome.code, 0) << name.toStdString();
        const QString expected = u"cannot read image %1 (not a regular file)"_s.arg(name);
        EXPECT_TRUE(outcome.err.contains(expected)) << outcome.err.toStdString();
    }
}

TEST_F(ProgramPost, WarnsThatAnActionNeedsToBeWaitedFor)
{
    const Outcome outcome = run(post({title, u"x"_s, u"--action"_s, u"true"_s}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(u"--wait"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramPost, TakesABuddyAndAnAlert)
{
    const Outcome outcome = run({u"post"_s, u"alert_received_notify"_s, title, u"x"_s, u"--buddy"_s, u"Anna"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(u"zepa_chat_window_notification_method"_s));
    // Without anybody who sent it, too.
    EXPECT_EQ(run({u"post"_s, u"alert_received_notify"_s, title, u"x"_s}).code, 0);
}

} // namespace
