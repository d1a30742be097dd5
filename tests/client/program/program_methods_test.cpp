// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString type = u"message_sent"_s; // it has no rule of its own
const QString speech = u"zepa_speech_notification_method"_s;
const QString logFile = u"zepa_log_file_notification_method"_s;
const QString command = u"zepa_command_notification_method"_s;

/// The delivery methods that the client brings beside the library's own, in the real program.
class ProgramMethods : public Program
{
protected:
    void set(const QString& method, const QStringList& fields)
    {
        const Outcome outcome = run(QStringList{u"rule"_s, u"set"_s, type, method} + fields);
        ASSERT_EQ(outcome.code, 0) << outcome.err.toStdString();
    }
    Outcome post()
    {
        return run(
            {u"post"_s, type, u"--title"_s, u"Ann"_s, u"--text"_s, u"Lunch?\nAt eight?"_s, u"--buddy"_s, u"ann"_s});
    }
};

TEST_F(ProgramMethods, DoNothingUntilARuleNamesThem)
{
    for (const QString& method : {speech, logFile, command})
        EXPECT_FALSE(run({u"rules"_s, u"--json"_s}).out.contains(method));
}

TEST_F(ProgramMethods, KeepTheirSettings)
{
    set(command, {u"command=notify 'it is' \"%t\""_s});
    set(speech, {u"voice=de"_s, u"speed=200"_s, u"content=title"_s});
    set(logFile, {u"file=/logs/my log"_s, u"size=5"_s, u"older_files=0"_s});
    const QString rules = run({u"rules"_s, type}).out;
    for (const char* value : {"command=notify 'it is' \"%t\"", "voice=de", "speed=200", "content=title",
                              "file=/logs/my log", "size=5", "older_files=0"})
        EXPECT_TRUE(rules.contains(QString::fromLatin1(value))) << rules.toStdString();
}

TEST_F(ProgramMethods, AreRefusedValuesThatDoNotFit)
{
    for (const char* value : {"speed=10", "content=all", "nope=1"}) {
        const Outcome outcome = run({u"rule"_s, u"set"_s, type, speech, QString::fromLatin1(value)});
        EXPECT_EQ(outcome.code, 2) << value;
    }
}

TEST_F(ProgramMethods, ReachTheLogTheCommandAndTheSpeakerFromOnePosting)
{
    write(u"espeak-ng"_s, "#!/bin/sh\n{ cat; echo; } >> \"$OUT/spoken\"\n");
    write(u"record"_s, "#!/bin/sh\nprintf '%s|' \"$@\" > \"$OUT/arguments.new\"\n"
                       "mv \"$OUT/arguments.new\" \"$OUT/arguments\"\n");
    for (const QString& name : {u"espeak-ng"_s, u"record"_s})
        QFile::setPermissions(inFolder(name), QFile::ReadOwner | QFile::ExeOwner);
    environment.insert(u"OUT"_s, inFolder({}));
    environment.insert(u"PATH"_s, inFolder({}) + u':' + environment.value(u"PATH"_s));

    set(speech, {});
    set(logFile, {u"file="_s + inFolder(u"log"_s)});
    set(command, {u"command=record %t '%m' %B"_s});
    const Outcome outcome = post();
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    for (const QString& method : {speech, logFile, command})
        EXPECT_TRUE(outcome.out.contains(method)) << outcome.out.toStdString();

    EXPECT_EQ(read(u"spoken"_s), QByteArrayLiteral("Ann\n\nLunch? At eight?\n"))
        << "the program waits until it is said";
    EXPECT_TRUE(read(u"log"_s).endsWith("\tmessage_sent\tAnn\tLunch?\\nAt eight?\n"));
    // The command does not belong to the program that started it, and may end later.
    QElapsedTimer clock;
    clock.start();
    while (!QFile::exists(inFolder(u"arguments"_s)) && !clock.hasExpired(60'000))
        QThread::msleep(10);
    EXPECT_EQ(read(u"arguments"_s), QByteArrayLiteral("Ann|Lunch?\nAt eight?|ann|"));
}

} // namespace
