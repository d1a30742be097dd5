// SPDX-License-Identifier: Apache-2.0
#include "program.h"
#include "tests/platform/fake_bus.h"
#include "tests/platform/service_fixture.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QStringList postAnna(const QStringList& rest)
{
    return QStringList{u"post"_s, u"message_received"_s, u"--title"_s, u"Anna"_s} + rest;
}

const QString wait = u"--wait"_s;

/// The real program on a private bus with a notification service that does what the test tells it.
class ProgramOnBus : public ServiceTest, protected ProgramRunner
{
protected:
    /// A program that leaves the activation token that it found in the file "ran".
    QString action()
    {
        write(u"action"_s, "#!/bin/sh\necho \"token=$XDG_ACTIVATION_TOKEN\" >ran.part\nmv ran.part ran\n");
        QFile::setPermissions(inFolder(u"action"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return inFolder(u"action"_s);
    }
};

TEST_F(ProgramOnBus, PostSaysThatThePopUpWasClickedAndRunsTheAction)
{
    const auto service = startService();
    const auto program = start(postAnna({wait, u"--action"_s, action()}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_FALSE(QFileInfo::exists(inFolder(u"ran"_s)));
    service->tell(u"token 1 the-token"_s);
    service->tell(u"click 1"_s);
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_EQ(outcome.lines().constLast(), u"clicked"_s);
    EXPECT_TRUE(waitFor([this] { return QFileInfo::exists(inFolder(u"ran"_s)); }));
    EXPECT_EQ(read(u"ran"_s), "token=the-token\n");
}

TEST_F(ProgramOnBus, PostWaitsForAnAnswerWithoutAnActionToo)
{
    const auto service = startService({u"click-last"_s});
    EXPECT_EQ(run(postAnna({wait})).lines().constLast(), u"clicked"_s);
}

TEST_F(ProgramOnBus, PostSaysThatThePopUpWentAwayWithoutAClick)
{
    const auto service = startService();
    const auto program = start(postAnna({wait, u"--action"_s, action()}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"close 1"_s);
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.lines().constLast(), u"timed out"_s);
    EXPECT_FALSE(QFileInfo::exists(inFolder(u"ran"_s)));
}

TEST_F(ProgramOnBus, PostOffersNoActionThatNobodyIsLeftToRun)
{
    const auto service = startService();
    const Outcome outcome = run(postAnna({u"--action"_s, action()}));
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_TRUE(service->calls().first()[u"actions"_s].toArray().isEmpty());
    EXPECT_TRUE(service->calls(u"CloseNotification"_s).isEmpty());
}

TEST_F(ProgramOnBus, EndsInOrderOnASignalAndLeavesNoPopUpThatCouldBeClicked)
{
    const auto service = startService();
    for (const int signal : {SIGTERM, SIGINT}) {
        const auto program = start(postAnna({wait, u"--action"_s, action()}));
        const auto popups = service->calls().size() + 1;
        ASSERT_TRUE(waitForPopups(*service, static_cast<int>(popups)));
        ::kill(static_cast<pid_t>(program->processId()), signal);
        const auto closed = [&] { return service->calls(u"CloseNotification"_s); };
        ASSERT_TRUE(waitFor([&] { return closed().size() == popups; })) << signal;
        EXPECT_EQ(closed().constLast()[u"id"_s].toInt(), popups);
        ASSERT_TRUE(waitFor([&] { return program->state() == QProcess::NotRunning; }));
        EXPECT_EQ(program->exitStatus(), QProcess::CrashExit) << "whoever waits for it does not see the signal";
        EXPECT_EQ(program->exitCode(), signal);
    }
}

TEST_F(ProgramOnBus, PostSaysWhatItsPopUpIsAbout)
{
    const auto service = startService();
    EXPECT_EQ(run(postAnna({})).code, 0);
    const QString rule = u"zepa_hint_notification"_s;
    run({u"rule"_s, u"set"_s, u"buddy_connected"_s, rule});
    run({u"post"_s, u"buddy_connected"_s, u"--title"_s, u"Ben"_s});
    ASSERT_TRUE(waitForPopups(*service, 2));
    const auto hints = [&](int number) { return service->calls()[number][u"values"_s].toObject(); };
    EXPECT_EQ(hints(0)[u"category"_s], u"im.received"_s);
    EXPECT_FALSE(hints(0).contains(u"transient"_s));
    EXPECT_EQ(hints(1)[u"category"_s], u"presence.online"_s);
    EXPECT_EQ(hints(1)[u"transient"_s], true);
    EXPECT_EQ(service->calls()[0][u"icon"_s], u"zepa"_s);
}

TEST_F(ProgramOnBus, ABusThatKeepsSilentCountsAsNone)
{
    const QString socket = inFolder(u"silent"_s);
    const FakeBus silent(QFile::encodeName(socket));
    ASSERT_TRUE(silent.listens());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + socket);
    const auto program = start(postAnna({wait}));
    ASSERT_TRUE(waitFor([&program] { return program->state() == QProcess::NotRunning; }));
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 4) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.lines().constLast().contains(u"no D-Bus session"_s)) << outcome.out.toStdString();
}

TEST_F(ProgramOnBus, PostEndsWhenTheServiceRefusesOrDies)
{
    {
        const auto service = startService({u"refuse"_s});
        EXPECT_EQ(run(postAnna({wait})).code, 3);
    }
    const auto service = startService();
    const auto program = start(postAnna({wait}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->kill();
    EXPECT_EQ(finish(*program).code, 3);
}

TEST_F(ProgramOnBus, PostWithoutWaitEndsWhenTheServiceHasThePopUp)
{
    const auto service = startService({u"late-capabilities"_s});
    const Outcome outcome = run(postAnna({u"--text"_s, u"Lunch?"_s}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_FALSE(outcome.err.contains(u"no pop-up"_s)) << outcome.err.toStdString();
    // The program has ended: what it did not send by now never comes.
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString call = QString::fromUtf8(QJsonDocument(service->calls().constFirst()).toJson());
    EXPECT_TRUE(call.contains(u"Lunch?"_s)) << call.toStdString();
}

TEST_F(ProgramOnBus, PostShowsALargePictureSmallAndThePopUpWithoutOneThatIsNoFile)
{
    const auto service = startService();
    QImage photograph(4000, 3000, QImage::Format_RGB32);
    photograph.fill(Qt::red);
    ASSERT_TRUE(photograph.save(inFolder(u"photograph.jpg"_s)));
    ASSERT_EQ(::mkfifo(QFile::encodeName(inFolder(u"pipe"_s)).constData(), 0600), 0);
    const QStringList icons{u"photograph.jpg"_s, u"pipe"_s};
    for (const QString& icon : icons) {
        const Outcome outcome = run(postAnna({u"--icon"_s, icon}));
        EXPECT_EQ(outcome.code, 0) << icon.toStdString();
        EXPECT_EQ(outcome.err.contains(u"cannot read image"_s), icon == icons.constLast()) << outcome.err.toStdString();
    }
    ASSERT_TRUE(waitForPopups(*service, 2));
    const auto imageOf = [&service](int number) {
        return QString::fromUtf8(QJsonDocument(service->calls().at(number)).toJson()).contains(u"image");
    };
    EXPECT_TRUE(imageOf(0));
    EXPECT_FALSE(imageOf(1));
}

TEST_F(ProgramOnBus, PostReachesAServiceThatTheBusHasToStart)
{
    const QString log = makeActivatable({});
    const Outcome outcome = run(postAnna({}));
    EXPECT_EQ(outcome.code, 0);
    const auto seen = [&log] {
        QFile file(log);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_TRUE(waitFor([&seen] { return seen().contains("Anna"); }))
        << outcome.err.toStdString() << seen().toStdString();
}

TEST_F(ProgramOnBus, PostReachesAServiceThatNeverSaysWhatItCanDo)
{
    const auto service = startService({u"mute-capabilities"_s});
    EXPECT_EQ(run(postAnna({})).code, 0);
    EXPECT_TRUE(waitForPopups(*service, 1));
}

TEST_F(ProgramOnBus, PostSaysThatThereIsNoService)
{
    const Outcome outcome = run(postAnna({wait}));
    EXPECT_EQ(outcome.code, 4);
    EXPECT_EQ(outcome.lines().constLast(), u"not shown: no notification service"_s);
}

TEST_F(ProgramOnBus, PlayTellsWhichPopUpsWereAnswered)
{
    const auto service = startService();
    const QByteArray script = R"({"type": "message_received", "title": "first", "action": "true"}
{"type": "message_received", "title": "second", "action": "true"}
{"type": "message_received", "title": "third"}
{"type": "message_received", "title": "fourth", "action": "true"}
)";
    const auto program = start({u"play"_s, u"-"_s, wait, u"3"_s}, script);
    ASSERT_TRUE(waitForPopups(*service, 4));
    service->tell(u"click 2"_s);
    service->tell(u"close 1"_s);
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(u"answered   message_received  \"second\"  clicked"_s))
        << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.contains(u"answered   message_received  \"first\"  timed out"_s));
    EXPECT_TRUE(outcome.lines().constLast().endsWith(u"1 clicked, 1 timed out, 1 unanswered"_s))
        << outcome.lines().constLast().toStdString();
}

TEST_F(ProgramOnBus, PlayEndsWithTheLastAnswer)
{
    const auto service = startService({u"click-last"_s});
    const Outcome outcome =
        run({u"play"_s, u"-"_s, wait}, R"({"type": "message_received", "title": "first", "action": "true"})");
    EXPECT_TRUE(outcome.lines().constLast().endsWith(u"1 clicked, 0 timed out, 0 unanswered"_s))
        << outcome.out.toStdString();
}

} // namespace
