// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

namespace {

const QString type = QStringLiteral("message_sent"); // it has no rule of its own
const QString speech = QStringLiteral("zepa_speech_notification_method");
const QString logFile = QStringLiteral("zepa_log_file_notification_method");
const QString command = QStringLiteral("zepa_command_notification_method");

/// The delivery methods that the client brings beside the library's own, in the real program.
class ProgramMethods : public Program
{
protected:
    void set(const QString& method, const QStringList& fields)
    {
        const Outcome outcome = run(QStringList{QStringLiteral("rule"), QStringLiteral("set"), type, method} + fields);
        ASSERT_EQ(outcome.code, 0) << outcome.err.toStdString();
    }
    Outcome post()
    {
        return run({QStringLiteral("post"), type, QStringLiteral("--title"), QStringLiteral("Ann"),
                    QStringLiteral("--text"), QStringLiteral("Lunch?\nAt eight?"), QStringLiteral("--buddy"),
                    QStringLiteral("ann")});
    }
};

TEST_F(ProgramMethods, DoNothingUntilARuleNamesThem)
{
    for (const QString& method : {speech, logFile, command})
        EXPECT_FALSE(run({QStringLiteral("rules"), QStringLiteral("--json")}).out.contains(method));
}

TEST_F(ProgramMethods, KeepTheirSettings)
{
    set(command, {QStringLiteral("command=notify 'it is' \"%t\"")});
    set(speech, {QStringLiteral("voice=de"), QStringLiteral("speed=200"), QStringLiteral("content=title")});
    set(logFile, {QStringLiteral("file=/logs/my log"), QStringLiteral("size=5"), QStringLiteral("older_files=0")});
    const QString rules = run({QStringLiteral("rules"), type}).out;
    for (const char* value : {"command=notify 'it is' \"%t\"", "voice=de", "speed=200", "content=title",
                              "file=/logs/my log", "size=5", "older_files=0"})
        EXPECT_TRUE(rules.contains(QString::fromLatin1(value))) << rules.toStdString();
}

TEST_F(ProgramMethods, AreRefusedValuesThatDoNotFit)
{
    for (const char* value : {"speed=10", "content=all", "nope=1"}) {
        const Outcome outcome =
            run({QStringLiteral("rule"), QStringLiteral("set"), type, speech, QString::fromLatin1(value)});
        EXPECT_EQ(outcome.code, 2) << value;
    }
}

TEST_F(ProgramMethods, ReachTheLogTheCommandAndTheSpeakerFromOnePosting)
{
    write(QStringLiteral("espeak-ng"), "#!/bin/sh\n{ cat; echo; } >> \"$OUT/spoken\"\n");
    write(QStringLiteral("record"), "#!/bin/sh\nprintf '%s|' \"$@\" > \"$OUT/arguments.new\"\n"
                                    "mv \"$OUT/arguments.new\" \"$OUT/arguments\"\n");
    for (const QString& name : {QStringLiteral("espeak-ng"), QStringLiteral("record")})
        QFile::setPermissions(inFolder(name), QFile::ReadOwner | QFile::ExeOwner);
    environment.insert(QStringLiteral("OUT"), inFolder({}));
    environment.insert(QStringLiteral("PATH"), inFolder({}) + u':' + environment.value(QStringLiteral("PATH")));

    set(speech, {});
    set(logFile, {QStringLiteral("file=") + inFolder(QStringLiteral("log"))});
    set(command, {QStringLiteral("command=record %t '%m' %B")});
    const Outcome outcome = post();
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    for (const QString& method : {speech, logFile, command})
        EXPECT_TRUE(outcome.out.contains(method)) << outcome.out.toStdString();

    EXPECT_EQ(read(QStringLiteral("spoken")), QByteArrayLiteral("Ann\n\nLunch? At eight?\n"))
        << "the program waits until it is said";
    EXPECT_TRUE(read(QStringLiteral("log")).endsWith("\tmessage_sent\tAnn\tLunch?\\nAt eight?\n"));
    // The command does not belong to the program that started it, and may end later.
    QElapsedTimer clock;
    clock.start();
    while (!QFile::exists(inFolder(QStringLiteral("arguments"))) && !clock.hasExpired(60'000))
        QThread::msleep(10);
    EXPECT_EQ(read(QStringLiteral("arguments")), QByteArrayLiteral("Ann|Lunch?\nAt eight?|ann|"));
}

} // namespace
