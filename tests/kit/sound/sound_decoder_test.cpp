// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/sound_cache.h"
#include "kit/sound/sound_decoder.h"
#include "tests/kit/sound/sound_files.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace zepa::audio;
using testing::Each;
using testing::HasSubstr;

namespace {

class SoundDecoder : public testing::Test
{
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    static std::string reason(const QString& file)
    {
        const DecodedSound sound = decodeSound(file);
        EXPECT_EQ(sound.clip, nullptr);
        return sound.reason.toStdString();
    }

    QTemporaryDir m_folder;
};

struct Format
{
    const char* name;
    int format;
    float tolerance; ///< of a sample; a lossy format is judged by its likeness instead
};

class SoundFormats : public SoundDecoder, public testing::WithParamInterface<Format>
{};

} // namespace

TEST_P(SoundFormats, AreReadAsTheyWereWritten)
{
    const std::vector<float> samples = soundfiles::sweep(6000, 2);
    ASSERT_TRUE(soundfiles::write(path(GetParam().name), GetParam().format, samples, 2));

    const DecodedSound sound = decodeSound(path(GetParam().name));

    ASSERT_NE(sound.clip, nullptr) << sound.reason.toStdString();
    EXPECT_TRUE(sound.reason.isEmpty());
    EXPECT_EQ(sound.clip->rate, 44100);
    EXPECT_EQ(sound.clip->channels, 2);
    ASSERT_EQ(sound.clip->frames(), 6000U);
    EXPECT_EQ(sound.clip->duration().count(), 136);
    if (GetParam().tolerance > 0) {
        EXPECT_THAT(sound.clip->samples, testing::Pointwise(testing::FloatNear(GetParam().tolerance), samples));
    } else {
        const auto& heard = sound.clip->samples;
        const double both = std::inner_product(heard.begin(), heard.end(), samples.begin(), 0.0);
        const double one = std::inner_product(heard.begin(), heard.end(), heard.begin(), 0.0);
        const double other = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
        EXPECT_GT(both / std::sqrt(one * other), 0.98);
    }
}

INSTANTIATE_TEST_SUITE_P(All, SoundFormats,
                         testing::Values(Format{"wav8.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 0.02F},
                                         Format{"wav16.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1e-4F},
                                         Format{"wav24.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 1e-6F},
                                         Format{"wavfloat.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1e-7F},
                                         Format{"aiff.aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 1e-4F},
                                         Format{"flac.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 1e-4F},
                                         Format{"ogg.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 0.0F}),
                         [](const testing::TestParamInfo<Format>& tested) {
                             const std::string name = tested.param.name;
                             return name.substr(0, name.find('.'));
                         });

TEST_F(SoundDecoder, RefusesAFileThatIsMissing)
{
    EXPECT_THAT(reason(path("none.wav")), HasSubstr("No such file"));
}

TEST_F(SoundDecoder, RefusesAnEmptyNameAndOneWithAZeroInIt)
{
    ASSERT_TRUE(soundfiles::write(path("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(10)));
    EXPECT_THAT(reason(QString()), HasSubstr("not a file name"));
    EXPECT_THAT(reason(path("a.wav") + QChar(QChar::Null) + u"b"_s), HasSubstr("not a file name"));
}

TEST_F(SoundDecoder, RefusesADirectoryAFifoAndADeviceWithoutOpeningThem)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    for (const QString& file : {m_folder.path(), path("fifo"), u"/dev/zero"_s, u"/dev/tty"_s})
        EXPECT_THAT(reason(file), HasSubstr("not a regular file")) << file.toStdString();
}

TEST_F(SoundDecoder, RefusesAFileThatIsNoSound)
{
    soundfiles::writeBytes(path("text.wav"), "This is a letter.");
    soundfiles::writeBytes(path("empty.wav"), {});
    EXPECT_THAT(reason(path("text.wav")), HasSubstr("no sound format"));
    EXPECT_THAT(reason(path("empty.wav")), HasSubstr("no sound format"));
}

TEST_F(SoundDecoder, RefusesASoundWithoutAFrame)
{
    ASSERT_TRUE(soundfiles::write(path("none.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, {}));
    EXPECT_THAT(reason(path("none.wav")), HasSubstr("holds no sound"));
}

TEST_F(SoundDecoder, RefusesAHugeFileUnread)
{
    ASSERT_TRUE(soundfiles::write(path("big.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(10)));
    QFile file(path("big.wav"));
    ASSERT_TRUE(file.resize(SoundLimits::fileBytes + 1));
    EXPECT_THAT(reason(path("big.wav")), HasSubstr("larger than"));
}

TEST_F(SoundDecoder, RefusesASoundThatIsTooLong)
{
    const std::vector<float> silence(SoundLimits::samples + 1, 0.0F);
    ASSERT_TRUE(soundfiles::write(path("long.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, silence));
    ASSERT_LT(QFile(path("long.flac")).size(), 100'000);
    EXPECT_THAT(reason(path("long.flac")), HasSubstr("too long"));
}

TEST_F(SoundDecoder, RefusesMoreChannelsAndStrangerRatesThanASoundHas)
{
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    ASSERT_TRUE(soundfiles::write(path("nine.wav"), wav, std::vector<float>(90, 0.1F), 9));
    ASSERT_TRUE(soundfiles::write(path("slow.wav"), wav, soundfiles::sweep(10), 1, 100));
    ASSERT_TRUE(soundfiles::write(path("fast.wav"), wav, soundfiles::sweep(10), 1, 2'000'000));
    EXPECT_THAT(reason(path("nine.wav")), HasSubstr("9 channels"));
    EXPECT_THAT(reason(path("slow.wav")), HasSubstr("100 frames a second"));
    EXPECT_THAT(reason(path("fast.wav")), HasSubstr("2000000 frames a second"));
}

TEST_F(SoundDecoder, TamesSamplesThatAreNoNumbersOrTooLoud)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    ASSERT_TRUE(soundfiles::write(path("wild.wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT,
                                  {0.25F, none, infinity, -infinity, 7.0F, -7.0F}));
    const DecodedSound sound = decodeSound(path("wild.wav"));
    ASSERT_NE(sound.clip, nullptr);
    EXPECT_THAT(sound.clip->samples, testing::ElementsAre(0.25F, 0.0F, 0.0F, 0.0F, 1.0F, -1.0F));
}

TEST_F(SoundDecoder, SurvivesEveryCutAndManyDamagedBytes)
{
    const std::vector<float> samples = soundfiles::sweep(3000);
    ASSERT_TRUE(soundfiles::write(path("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, samples));
    ASSERT_TRUE(soundfiles::write(path("a.aiff"), SF_FORMAT_AIFF | SF_FORMAT_PCM_16, samples));
    ASSERT_TRUE(soundfiles::write(path("a.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, samples));
    ASSERT_TRUE(soundfiles::write(path("a.ogg"), SF_FORMAT_OGG | SF_FORMAT_VORBIS, samples));
    const QString broken = path("broken");
    for (const char* name : {"a.wav", "a.aiff", "a.flac", "a.ogg"}) {
        const QByteArray whole = soundfiles::readBytes(path(name));
        unsigned seed = 1;
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes = whole;
            if (round % 2 == 0)
                bytes.truncate(whole.size() * round / 300);
            for (int hit = 0; round % 2 == 1 && hit < 4; ++hit) {
                seed = seed * 1664525U + 1013904223U;
                bytes[static_cast<qsizetype>(seed >> 8) % bytes.size()] = static_cast<char>(seed >> 24);
            }
            soundfiles::writeBytes(broken, bytes);
            const DecodedSound sound = decodeSound(broken);
            ASSERT_NE(sound.clip == nullptr, sound.reason.isEmpty()) << name << ' ' << round;
            if (sound.clip) {
                ASSERT_THAT(sound.clip->samples, Each(testing::AllOf(testing::Ge(-1.0F), testing::Le(1.0F))));
            }
        }
    }
}

TEST_F(SoundDecoder, CacheHandsOutTheSameClipUntilTheFileChanges)
{
    const int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    ASSERT_TRUE(soundfiles::write(path("a.wav"), wav, soundfiles::sweep(100)));
    SoundCache cache;
    const auto first = cache.load(path("a.wav")).clip;
    EXPECT_EQ(cache.load(path("a.wav")).clip, first);

    ASSERT_TRUE(soundfiles::write(path("a.wav"), wav, soundfiles::sweep(200)));
    const auto second = cache.load(path("a.wav")).clip;
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->frames(), 200U);
    EXPECT_EQ(cache.clips(), 1U);

    ASSERT_TRUE(QFile::remove(path("a.wav")));
    EXPECT_EQ(cache.load(path("a.wav")).clip, nullptr);
    EXPECT_EQ(cache.clips(), 0U);
    EXPECT_EQ(cache.samples(), 0U);
}

TEST_F(SoundDecoder, CacheReadsARepairedFile)
{
    SoundCache cache;
    soundfiles::writeBytes(path("a.wav"), "broken");
    EXPECT_EQ(cache.load(path("a.wav")).clip, nullptr);
    ASSERT_TRUE(soundfiles::write(path("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(100)));
    EXPECT_NE(cache.load(path("a.wav")).clip, nullptr);
}

TEST_F(SoundDecoder, CacheKeepsTheClipsThatWereUsedLast)
{
    SoundCache cache;
    const auto name = [this](int number) { return m_folder.filePath(u"%1.wav"_s.arg(number)); };
    for (int number = 0; number < 40; ++number) {
        ASSERT_TRUE(soundfiles::write(name(number), SF_FORMAT_WAV | SF_FORMAT_PCM_16, soundfiles::sweep(10)));
        cache.load(name(number));
        cache.load(name(0));
        ASSERT_LE(cache.clips(), SoundCache::maxClips);
    }
    EXPECT_EQ(cache.samples(), 10U * SoundCache::maxClips);
    const auto kept = cache.load(name(0)).clip;
    EXPECT_EQ(kept.use_count(), 2) << "the cache does not hold it";
}

TEST_F(SoundDecoder, CacheIsBoundedInSamples)
{
    SoundCache cache;
    for (const char* name : {"a.flac", "b.flac", "c.flac"}) {
        const std::vector<float> silence(SoundLimits::samples / 2, 0.0F);
        ASSERT_TRUE(soundfiles::write(path(name), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, silence));
        ASSERT_NE(cache.load(path(name)).clip, nullptr);
        EXPECT_LE(cache.samples(), SoundCache::maxSamples);
    }
    EXPECT_EQ(cache.clips(), 2U);
}
