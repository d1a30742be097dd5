// SPDX-License-Identifier: Apache-2.0
// The service with a real sound server, and what sounds there.
#include "kit/sound/audio_service.h"
#include "kit/sound/play_queue.h"
#include "kit/sound/pulse_player.h"
#include "kit/sound/sound_decoder.h"
#include "tests/kit/sound/likeness.h"
#include "tests/kit/sound/log_lines.h"
#include "tests/kit/sound/sound_files.h"
#include "tests/kit/sound/sound_server.h"

#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace zepa::audio;

namespace {

constexpr int patience = 60'000;
const char* const themeSounds[] = {"bell", "mail", "online", "message", "file", "login"};

QString themeSound(const char* name)
{
    return QString::fromUtf8(ZEPA_SOURCE_THEMES "/sounds/default/%1.wav").arg(QString::fromUtf8(name));
}

std::vector<float> samplesOf(const QString& path)
{
    const DecodedSound sound = decodeSound(path);
    return sound.clip ? sound.clip->samples : std::vector<float>();
}

class RealSoundServer : public testing::Test
{
protected:
    void SetUp() override
    {
        if (const QString missing = SoundServer::missing(); !missing.isEmpty())
            GTEST_SKIP() << missing.toStdString();
        ASSERT_TRUE(m_server.start());
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// A file that sounds that long, made for the test.
    QString tone(double seconds)
    {
        QString file = path("tone.wav");
        const auto frames = static_cast<int>(seconds * 44100);
        EXPECT_TRUE(soundfiles::write(file, SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(frames)));
        return file;
    }

    /// Plays one file and returns what was heard.
    static std::vector<float> hear(AudioService& service, SoundRecorder& recorder, const QString& file)
    {
        recorder.take(0);
        service.playFile(file);
        EXPECT_TRUE(service.waitUntilIdle(patience));
        return recorder.take(0.5);
    }

    QTemporaryDir m_folder;
    SoundServer m_server;
    LogLines m_log;
};

class RealSoundServerFormats : public RealSoundServer, public testing::WithParamInterface<int>
{};

} // namespace

TEST_F(RealSoundServer, HearsEachSoundOfTheThemeAndNoOther)
{
    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    AudioService service;
    for (const char* played : themeSounds) {
        const std::vector<float> heard = hear(service, recorder, themeSound(played));
        const double own = likeness(heard, samplesOf(themeSound(played)));
        EXPECT_GT(own, 0.9) << played;
        for (const char* name : themeSounds) {
            if (name != played) {
                EXPECT_LT(likeness(heard, samplesOf(themeSound(name))), 0.7 * own) << played << " is like " << name;
            }
        }
    }
    EXPECT_TRUE(m_log.lines().isEmpty()) << m_log.lines().join(u'\n').toStdString();
}

TEST_F(RealSoundServer, HearsNothingOfAFileThatCannotBePlayed)
{
    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    soundfiles::writeBytes(path("letter.wav"), QByteArray(100'000, 'x'));
    AudioService service;
    for (const QString& file : {path("none.wav"), path("letter.wav"), m_folder.path()}) {
        const std::vector<float> heard = hear(service, recorder, file);
        EXPECT_EQ(beginOfSound(heard), heard.size());
    }
    const std::vector<float> heard = hear(service, recorder, themeSound("bell"));
    EXPECT_LT(beginOfSound(heard), heard.size()) << "the recorder is deaf";
    EXPECT_EQ(m_log.lines().size(), 3);
}

TEST_P(RealSoundServerFormats, AreHeard)
{
    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    const std::vector<float> source = soundfiles::sweep(22050);
    ASSERT_TRUE(soundfiles::write(path("a"), GetParam(), source));
    AudioService service;
    EXPECT_GT(likeness(hear(service, recorder, path("a")), source), 0.9);
}

INSTANTIATE_TEST_SUITE_P(Each, RealSoundServerFormats,
                         testing::Values(SF_FORMAT_WAV | SF_FORMAT_PCM_24, SF_FORMAT_AIFF | SF_FORMAT_PCM_16,
                                         SF_FORMAT_OGG | SF_FORMAT_VORBIS, SF_FORMAT_FLAC | SF_FORMAT_PCM_16));

TEST_F(RealSoundServer, HearsTheWholeOfALongSound)
{
    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    AudioService service;
    const QString file = tone(4.0); // longer than what the server takes at once
    EXPECT_GT(likeness(hear(service, recorder, file), samplesOf(file)), 0.9);
}

TEST_F(RealSoundServer, IsFoundAgainAfterItDiedInMidPlay)
{
    AudioService service;
    service.playFile(tone(30.0));
    service.playFile(themeSound("bell"));
    {
        SoundRecorder recorder(m_server);
        const std::vector<float> heard = recorder.take(0.2);
        ASSERT_LT(beginOfSound(heard), heard.size()) << "it does not play yet";
    }
    m_server.kill();
    ASSERT_TRUE(service.waitUntilIdle(patience));
    ASSERT_GE(m_log.lines().size(), 1);
    EXPECT_TRUE(m_log.lines().join(u'\n').contains(path("tone.wav")));

    service.playFile(themeSound("bell"));
    ASSERT_TRUE(service.waitUntilIdle(patience));

    ASSERT_TRUE(m_server.start());
    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    EXPECT_GT(likeness(hear(service, recorder, themeSound("mail")), samplesOf(themeSound("mail"))), 0.9);
}

TEST_F(RealSoundServer, NeverHoldsTheCallerWhenItHangs)
{
    AudioService service;
    service.playFile(tone(30.0));
    {
        SoundRecorder recorder(m_server);
        ASSERT_TRUE(recorder.isRunning());
    }
    m_server.stop();

    // The caller's own loop: each beat asks for a sound, and all of them are asked for while the server sleeps.
    int beats = 0;
    int most = 0;
    QEventLoop loop;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, &loop, [&] {
        service.playFile(themeSound(themeSounds[beats % 6]));
        most = std::max(most, service.unfinished());
        if (++beats == 100)
            loop.quit();
    });
    beat.start(1);
    loop.exec();

    EXPECT_EQ(beats, 100);
    EXPECT_LE(most, static_cast<int>(PlayQueue::maxWaiting + PulsePlayer::maxSounding));
    EXPECT_GE(most, static_cast<int>(PlayQueue::maxWaiting)) << "the server did not hang";
}

TEST_F(RealSoundServer, IsGivenUpWhenItHangsAndHeardAgainAfterwards)
{
    AudioService service;
    service.playFile(themeSound("message"));
    ASSERT_TRUE(service.waitUntilIdle(patience));

    m_server.stop();
    for (int i = 0; i < 20; ++i)
        service.playFile(themeSound("bell"));
    EXPECT_TRUE(service.waitUntilIdle(patience)) << "it waits for ever";
    const QString lines = m_log.lines().join(u'\n');
    EXPECT_TRUE(lines.contains(u"does not answer"_s)) << lines.toStdString();
    EXPECT_TRUE(lines.contains(themeSound("bell")));
    m_server.continueIt();

    SoundRecorder recorder(m_server);
    ASSERT_TRUE(recorder.isRunning());
    recorder.take(1.0); // what the sleeping server had taken in before
    EXPECT_GT(likeness(hear(service, recorder, themeSound("login")), samplesOf(themeSound("login"))), 0.9);
}

TEST_F(RealSoundServer, DoesNotHoldTheEndOfTheServiceWhenItHangs)
{
    m_server.stop();
    {
        AudioService service;
        for (int i = 0; i < 100; ++i)
            service.playFile(themeSound("bell"));
        EXPECT_GT(service.unfinished(), 0);
    }
    m_server.continueIt();
    AudioService next;
    next.playFile(themeSound("bell"));
    EXPECT_TRUE(next.waitUntilIdle(patience));
}

TEST_F(RealSoundServer, TakesAHundredPlaysInARowWithoutGrowth)
{
    const auto openFiles = [] { return QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::Files).size(); };
    AudioService service;
    service.playFile(themeSound("message"));
    ASSERT_TRUE(service.waitUntilIdle(patience));
    const auto before = openFiles();
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 100; ++i)
            service.playFile(themeSound("message"));
        EXPECT_LE(service.unfinished(), static_cast<int>(PlayQueue::maxWaiting + PulsePlayer::maxSounding));
        ASSERT_TRUE(service.waitUntilIdle(patience));
    }
    EXPECT_EQ(openFiles(), before);
    for (const QString& line : m_log.lines()) {
        EXPECT_TRUE(line.contains(u"too many"_s) || line.contains(u"too long"_s)) << line.toStdString();
    }
}
