// SPDX-License-Identifier: Apache-2.0
// The service without a sound server.
#include "kit/sound/audio_service.h"
#include "kit/sound/play_queue.h"
#include "kit/sound/pulse_player.h"
#include "tests/kit/sound/log_lines.h"
#include "tests/kit/sound/sound_files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace zepa::audio;

namespace {

constexpr int patience = 30'000;

class AudioServiceAlone : public testing::Test
{
protected:
    void SetUp() override
    {
        // Set, so that no server of the person who runs the tests is found.
        qputenv("PULSE_SERVER", "unix:/nonexistent/pulse");
        ASSERT_TRUE(soundfiles::write(path("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(4410)));
    }

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir m_folder;
    LogLines m_log;
};

} // namespace

TEST_F(AudioServiceAlone, IsTheOneOfTheHost)
{
    EXPECT_EQ(ZepaAudio::getInstance(), &AudioService::instance());
    EXPECT_EQ(ZepaAudio::getInstance(), ZepaAudio::getInstance());
}

TEST_F(AudioServiceAlone, IsIdleBeforeTheFirstSound)
{
    AudioService service;
    EXPECT_TRUE(service.waitUntilIdle(0));
    EXPECT_EQ(service.unfinished(), 0);
}

TEST_F(AudioServiceAlone, SaysOnceForAFileThatThereIsNoServer)
{
    AudioService service;
    for (int round = 0; round < 5; ++round) {
        service.playFile(path("a.wav"));
        ASSERT_TRUE(service.waitUntilIdle(patience));
    }
    ASSERT_EQ(m_log.lines().size(), 1) << m_log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(m_log.lines().front().contains(path("a.wav")));
    EXPECT_TRUE(m_log.lines().front().contains(u"sound server"_s));
}

TEST_F(AudioServiceAlone, NamesEachFileThatCannotBePlayedInOneLine)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    soundfiles::writeBytes(path("letter.wav"), "This is a letter.");
    AudioService service;
    const QStringList files = {path("none.wav"), path("letter.wav"), path("fifo"), m_folder.path(), u"/dev/zero"_s};
    for (int round = 0; round < 3; ++round) {
        for (const QString& file : files)
            service.playFile(file);
        ASSERT_TRUE(service.waitUntilIdle(patience));
    }
    const QStringList lines = m_log.lines();
    ASSERT_EQ(lines.size(), files.size()) << lines.join(u'\n').toStdString();
    for (int i = 0; i < files.size(); ++i)
        EXPECT_TRUE(lines.at(i).contains(u'"' + files.at(i) + u'"')) << lines.at(i).toStdString();
}

TEST_F(AudioServiceAlone, WritesOneLineForANameWithLineBreaks)
{
    AudioService service;
    service.playFile(u"/none\nzepa.audio: forged"_s);
    ASSERT_TRUE(service.waitUntilIdle(patience));
    ASSERT_EQ(m_log.lines().size(), 1);
    EXPECT_FALSE(m_log.lines().front().contains(u'\n'));
}

TEST_F(AudioServiceAlone, HoldsABoundedNumberHoweverManyAreAskedFor)
{
    AudioService service;
    const int bound = static_cast<int>(PlayQueue::maxWaiting + PulsePlayer::maxSounding);
    for (int i = 0; i < 100'000; ++i) {
        service.playFile(path("a.wav"));
        ASSERT_LE(service.unfinished(), bound + 1);
    }
    EXPECT_TRUE(service.waitUntilIdle(patience));
}

TEST_F(AudioServiceAlone, LeavesNoFilesOpenBehind)
{
    const auto open = [] { return QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::Files).size(); };
    const auto before = open();
    for (int round = 0; round < 20; ++round) {
        AudioService service;
        service.playFile(path("a.wav"));
        service.playFile(path("none.wav"));
        if (round % 2 == 0) {
            ASSERT_TRUE(service.waitUntilIdle(patience));
        }
    }
    EXPECT_EQ(open(), before);
}

TEST(PlayQueue, DropsWhatIsTooMuchAndTellsTheLastOfIt)
{
    PlayQueue queue;
    EXPECT_TRUE(queue.push(u"first"_s));
    for (std::size_t i = 1; i < PlayQueue::maxWaiting; ++i)
        EXPECT_TRUE(queue.push(u"next"_s));
    EXPECT_FALSE(queue.push(u"dropped"_s));
    EXPECT_EQ(queue.unfinished(), PlayQueue::maxWaiting);
    EXPECT_EQ(queue.takeDropped(), u"dropped"_s);
    EXPECT_FALSE(queue.takeDropped().has_value());
    EXPECT_EQ(queue.take()->path, u"first"_s);
}

TEST(PlayQueue, IsIdleOnlyWhenWhatWasTakenIsFinished)
{
    PlayQueue queue;
    queue.push(u"a"_s);
    EXPECT_FALSE(queue.waitUntilIdle(std::chrono::milliseconds(0)));
    ASSERT_TRUE(queue.take().has_value());
    EXPECT_FALSE(queue.take().has_value());
    EXPECT_FALSE(queue.waitUntilIdle(std::chrono::milliseconds(0)));
    queue.finished();
    EXPECT_TRUE(queue.waitUntilIdle(std::chrono::milliseconds(0)));
}
