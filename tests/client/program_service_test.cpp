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

namespace {

QStringList postAnna(const QStringList& rest)
{
    return QStringList{QStringLiteral("post"), QStringLiteral("message_received"), QStringLiteral("--title"),
                       QStringLiteral("Anna")} +
           rest;
}

const QString wait = QStringLiteral("--wait");

/// The real program on a private bus with a notification service that does what the test tells it.
class ProgramOnBus : public ServiceTest, protected ProgramRunner
{
protected:
    /// A program that leaves the activation token that it found in the file "ran".
    QString action()
    {
        write(QStringLiteral("action"), "#!/bin/sh\necho \"token=$XDG_ACTIVATION_TOKEN\" >ran.part\nmv ran.part ran\n");
        QFile::setPermissions(inFolder(QStringLiteral("action")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return inFolder(QStringLiteral("action"));
    }
};

TEST_F(ProgramOnBus, PostSaysThatThePopUpWasClickedAndRunsTheAction)
{
    const auto service = startService();
    const auto program = start(postAnna({wait, QStringLiteral("--action"), action()}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_FALSE(QFileInfo::exists(inFolder(QStringLiteral("ran"))));
    service->tell(QStringLiteral("token 1 the-token"));
    service->tell(QStringLiteral("click 1"));
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_EQ(outcome.lines().constLast(), QStringLiteral("clicked"));
    EXPECT_TRUE(waitFor([this] { return QFileInfo::exists(inFolder(QStringLiteral("ran"))); }));
    EXPECT_EQ(read(QStringLiteral("ran")), "token=the-token\n");
}

TEST_F(ProgramOnBus, PostWaitsForAnAnswerWithoutAnActionToo)
{
    const auto service = startService({QStringLiteral("click-last")});
    EXPECT_EQ(run(postAnna({wait})).lines().constLast(), QStringLiteral("clicked"));
}

TEST_F(ProgramOnBus, PostSaysThatThePopUpWentAwayWithoutAClick)
{
    const auto service = startService();
    const auto program = start(postAnna({wait, QStringLiteral("--action"), action()}));
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(QStringLiteral("close 1"));
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.lines().constLast(), QStringLiteral("timed out"));
    EXPECT_FALSE(QFileInfo::exists(inFolder(QStringLiteral("ran"))));
}

TEST_F(ProgramOnBus, PostOffersNoActionThatNobodyIsLeftToRun)
{
    const auto service = startService();
    const Outcome outcome = run(postAnna({QStringLiteral("--action"), action()}));
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_TRUE(service->calls().first()[QStringLiteral("actions")].toArray().isEmpty());
    EXPECT_TRUE(service->calls(QStringLiteral("CloseNotification")).isEmpty());
}

TEST_F(ProgramOnBus, EndsInOrderOnASignalAndLeavesNoPopUpThatCouldBeClicked)
{
    const auto service = startService();
    for (const int signal : {SIGTERM, SIGINT}) {
        const auto program = start(postAnna({wait, QStringLiteral("--action"), action()}));
        const auto popups = service->calls().size() + 1;
        ASSERT_TRUE(waitForPopups(*service, static_cast<int>(popups)));
        ::kill(static_cast<pid_t>(program->processId()), signal);
        const auto closed = [&] { return service->calls(QStringLiteral("CloseNotification")); };
        ASSERT_TRUE(waitFor([&] { return closed().size() == popups; })) << signal;
        EXPECT_EQ(closed().constLast()[QStringLiteral("id")].toInt(), popups);
        ASSERT_TRUE(waitFor([&] { return program->state() == QProcess::NotRunning; }));
        EXPECT_EQ(program->exitStatus(), QProcess::CrashExit) << "whoever waits for it does not see the signal";
        EXPECT_EQ(program->exitCode(), signal);
    }
}

TEST_F(ProgramOnBus, PostSaysWhatItsPopUpIsAbout)
{
    const auto service = startService();
    EXPECT_EQ(run(postAnna({})).code, 0);
    const QString rule = QStringLiteral("zepa_hint_notification");
    run({QStringLiteral("rule"), QStringLiteral("set"), QStringLiteral("buddy_connected"), rule});
    run({QStringLiteral("post"), QStringLiteral("buddy_connected"), QStringLiteral("--title"), QStringLiteral("Ben")});
    ASSERT_TRUE(waitForPopups(*service, 2));
    const auto hints = [&](int number) { return service->calls()[number][QStringLiteral("values")].toObject(); };
    EXPECT_EQ(hints(0)[QStringLiteral("category")], QStringLiteral("im.received"));
    EXPECT_FALSE(hints(0).contains(QStringLiteral("transient")));
    EXPECT_EQ(hints(1)[QStringLiteral("category")], QStringLiteral("presence.online"));
    EXPECT_EQ(hints(1)[QStringLiteral("transient")], true);
    EXPECT_EQ(service->calls()[0][QStringLiteral("icon")], QStringLiteral("zepa"));
}

TEST_F(ProgramOnBus, ABusThatKeepsSilentCountsAsNone)
{
    const QString socket = inFolder(QStringLiteral("silent"));
    const FakeBus silent(QFile::encodeName(socket));
    ASSERT_TRUE(silent.listens());
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=") + socket);
    const auto program = start(postAnna({wait}));
    ASSERT_TRUE(waitFor([&program] { return program->state() == QProcess::NotRunning; }));
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 4) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.lines().constLast().contains(QStringLiteral("no session bus"))) << outcome.out.toStdString();
}

TEST_F(ProgramOnBus, PostEndsWhenTheServiceRefusesOrDies)
{
    {
        const auto service = startService({QStringLiteral("refuse")});
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
    const auto service = startService({QStringLiteral("late-capabilities")});
    const Outcome outcome = run(postAnna({QStringLiteral("--text"), QStringLiteral("Lunch?")}));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_FALSE(outcome.err.contains(QStringLiteral("no pop-up"))) << outcome.err.toStdString();
    // The program has ended: what it did not send by now never comes.
    ASSERT_TRUE(waitForPopups(*service, 1));
    const QString call = QString::fromUtf8(QJsonDocument(service->calls().constFirst()).toJson());
    EXPECT_TRUE(call.contains(QStringLiteral("Lunch?"))) << call.toStdString();
}

TEST_F(ProgramOnBus, PostShowsALargePictureSmallAndThePopUpWithoutOneThatIsNoFile)
{
    const auto service = startService();
    QImage photograph(4000, 3000, QImage::Format_RGB32);
    photograph.fill(Qt::red);
    ASSERT_TRUE(photograph.save(inFolder(QStringLiteral("photograph.jpg"))));
    ASSERT_EQ(::mkfifo(QFile::encodeName(inFolder(QStringLiteral("pipe"))).constData(), 0600), 0);
    const QStringList icons{QStringLiteral("photograph.jpg"), QStringLiteral("pipe")};
    for (const QString& icon : icons) {
        const Outcome outcome = run(postAnna({QStringLiteral("--icon"), icon}));
        EXPECT_EQ(outcome.code, 0) << icon.toStdString();
        EXPECT_EQ(outcome.err.contains(QStringLiteral("cannot read image")), icon == icons.constLast())
            << outcome.err.toStdString();
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
    const auto service = startService({QStringLiteral("mute-capabilities")});
    EXPECT_EQ(run(postAnna({})).code, 0);
    EXPECT_TRUE(waitForPopups(*service, 1));
}

TEST_F(ProgramOnBus, PostSaysThatThereIsNoService)
{
    const Outcome outcome = run(postAnna({wait}));
    EXPECT_EQ(outcome.code, 4);
    EXPECT_EQ(outcome.lines().constLast(), QStringLiteral("not shown: no notification service"));
}

TEST_F(ProgramOnBus, PlayTellsWhichPopUpsWereAnswered)
{
    const auto service = startService();
    const QByteArray script = R"({"type": "message_received", "title": "first", "action": "true"}
{"type": "message_received", "title": "second", "action": "true"}
{"type": "message_received", "title": "third"}
{"type": "message_received", "title": "fourth", "action": "true"}
)";
    const auto program = start({QStringLiteral("play"), QStringLiteral("-"), wait, QStringLiteral("3")}, script);
    ASSERT_TRUE(waitForPopups(*service, 4));
    service->tell(QStringLiteral("click 2"));
    service->tell(QStringLiteral("close 1"));
    const Outcome outcome = finish(*program);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("answered   message_received  \"second\"  clicked")))
        << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("answered   message_received  \"first\"  timed out")));
    EXPECT_TRUE(outcome.lines().constLast().endsWith(QStringLiteral("1 clicked, 1 timed out, 1 unanswered")))
        << outcome.lines().constLast().toStdString();
}

TEST_F(ProgramOnBus, PlayEndsWithTheLastAnswer)
{
    const auto service = startService({QStringLiteral("click-last")});
    const Outcome outcome = run({QStringLiteral("play"), QStringLiteral("-"), wait},
                                R"({"type": "message_received", "title": "first", "action": "true"})");
    EXPECT_TRUE(outcome.lines().constLast().endsWith(QStringLiteral("1 clicked, 0 timed out, 0 unanswered")))
        << outcome.out.toStdString();
}

} // namespace
