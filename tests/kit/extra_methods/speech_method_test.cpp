// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/speech/speech_method.h"

#include "posting_support.h"
#include "qt_printers.h"
#include "tests/kit/sound/log_lines.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <optional>

#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace {

/// The method with an espeak-ng of the test's own first in PATH.
class Speech : public testing::Test
{
protected:
    Speech() { qputenv("PATH", (m_folder.path() + u':' + qEnvironmentVariable("PATH")).toUtf8()); }

    QByteArray path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)).toUtf8(); }
    QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    /// What it does when it is asked to speak.
    void speaker(const QByteArray& body) const { writeScript(file("espeak-ng"), body); }
    /// Notes its arguments and what it is to say.
    void recordingSpeaker() const
    {
        speaker("echo \"$*\" >> " + path("arguments") + "; { cat; echo; } >> " + path("said"));
    }
    bool allIsSaid() const
    {
        return handleEventsUntil([this] { return method->unfinished() == 0; });
    }

    std::optional<zepa::SpeechMethod> method{std::in_place};
    MethodCall call{*method};
    LogLines log;

private:
    QTemporaryDir m_folder;
};

TEST_F(Speech, GetsTheTextOnItsInputAndTheSettingsAsArguments)
{
    recordingSpeaker();
    call.set("voice", u"de"_s);
    call.set("speed", u"200"_s);
    call.post(u"--version; $(x)"_s, u"Gr\u00fc\u00dfe image:/x.png:image"_s);
    EXPECT_EQ(method->unfinished(), 1) << "the caller does not wait for it";
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(contentOf(file("arguments")), QByteArrayLiteral("--stdin -b 1 -s 200 -v de\n"));
    EXPECT_EQ(contentOf(file("said")), QByteArrayLiteral("--version; $(x)\n\nGr\xc3\xbc\xc3\x9f\x65\n"));
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(Speech, ReadsWhatTheRuleNames)
{
    recordingSpeaker();
    call.set("content", u"title"_s);
    call.post(u"Ann"_s, u"Lunch?"_s);
    call.set("content", u"text"_s);
    call.post(u"Ann"_s, u"Lunch?"_s);
    call.post(u"Ann"_s, u" \n"_s);
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(contentOf(file("said")), QByteArrayLiteral("Ann\nLunch?\n"));
    EXPECT_EQ(contentOf(file("arguments")), QByteArrayLiteral("--stdin -b 1 -s 175\n").repeated(2));
}

TEST_F(Speech, SaysOneTextAfterTheOtherAndDropsWhatIsTooMuch)
{
    speaker("test -e " + path("speaking") + " && echo both >> " + path("said") + "\ntouch " + path("speaking") +
            "\nwhile ! test -e " + path("gate") + "; do sleep 0.02; done\n{ cat; echo; } >> " + path("said") + "\nrm " +
            path("speaking"));
    constexpr int fitting = 1 + zepa::Speaker::mostWaiting;
    for (int i = 0; i < fitting + 3; ++i)
        call.post(QString::number(i));
    EXPECT_EQ(method->unfinished(), fitting);
    EXPECT_EQ(log.lines(), QStringList{u"\"espeak-ng\": too much to say: a text was dropped"_s});
    QFile(file("gate")).open(QIODevice::WriteOnly);
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(contentOf(file("said")), QByteArrayLiteral("0\n1\n2\n3\n4\n5\n6\n7\n8\n"));
}

TEST_F(Speech, WithoutASpeakerIsSaidOnceAndDoesNoHarm)
{
    qputenv("PATH", path("nowhere"));
    for (int i = 0; i < 3; ++i)
        call.post(u"secret"_s);
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(log.lines(), QStringList{u"\"espeak-ng\": cannot be started: nothing is spoken"_s});
}

TEST_F(Speech, GoesOnAfterASpeakerThatFailsOrCrashes)
{
    speaker("case \"$*\" in *bad*) exit 1;; *dead*) kill -9 $$;; esac\n{ cat; echo; } >> " + path("said"));
    for (const QString& voice : {u"bad"_s, u"dead"_s, u"bad"_s, QString()}) {
        call.set("voice", voice);
        call.post(u"hello"_s);
    }
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(contentOf(file("said")), QByteArrayLiteral("hello\n"));
    EXPECT_EQ(log.lines(), (QStringList{
                               u"\"espeak-ng -v bad\": could not speak: is there such a voice?"_s,
                               u"\"espeak-ng -v dead\": was ended while it spoke"_s,
                           }));
}

TEST_F(Speech, FallsSilentWhenTheClientEnds)
{
    speaker("echo $$ > " + path("unfinished") + "; mv " + path("unfinished") + " " + path("process") +
            "\nexec sleep 1000");
    call.post(u"hello"_s);
    ASSERT_TRUE(handleEventsUntil([this] { return QFile::exists(file("process")); }));
    method.reset();
    EXPECT_EQ(::kill(contentOf(file("process")).trimmed().toInt(), 0), -1);
    EXPECT_EQ(errno, ESRCH);
    EXPECT_TRUE(log.lines().isEmpty());
}

/// The real speaker, which writes what it would say into a file.
class RealSpeech : public Speech
{
protected:
    void SetUp() override
    {
        const QString real = QStandardPaths::findExecutable(u"espeak-ng"_s);
        if (real.isEmpty())
            GTEST_SKIP() << "espeak-ng is not installed";
        speaker("exec " + real.toUtf8() + " -w " + path("spoken.wav") + " \"$@\"");
    }
    qsizetype spokenBytes()
    {
        EXPECT_TRUE(allIsSaid());
        return contentOf(file("spoken.wav")).size();
    }
};

TEST_F(RealSpeech, LastsLongerForALongerTextAndShorterAtMoreSpeed)
{
    call.post(u"Ann"_s, u"Lunch?"_s);
    const qsizetype few = spokenBytes();
    EXPECT_GT(few, 20'000) << "half a second at least, 22050 samples of two bytes a second";
    call.post(u"Ann"_s, u"Shall we have lunch together at eight o'clock in the evening?"_s);
    const qsizetype many = spokenBytes();
    EXPECT_GT(many, 2 * few);
    call.set("speed", u"400"_s);
    call.post(u"Ann"_s, u"Shall we have lunch together at eight o'clock in the evening?"_s);
    EXPECT_LT(spokenBytes(), many * 2 / 3);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(RealSpeech, RefusesAVoiceThatIsNotThere)
{
    call.set("voice", u"nosuchvoice"_s);
    call.post(u"Ann"_s);
    EXPECT_TRUE(allIsSaid());
    EXPECT_EQ(log.lines(), QStringList{u"\"espeak-ng -v nosuchvoice\": could not speak: is there such a voice?"_s});
}

} // namespace
