// SPDX-License-Identifier: Apache-2.0
// The themes that come with the program: complete, and made by the scripts that lie beside them.
#include "core/notification_module.h"
#include "kit/settings/settings.h"
#include "kit/sound/sound_decoder.h"
#include "tests/kit/sound/likeness.h"
#include "tests/kit/sound/sound_files.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;

using zepa::audio::decodeSound;
using zepa::audio::SoundClip;

namespace {

constexpr int patience = 60'000;
const QString themes = QString::fromUtf8(ZEPA_SOURCE_THEMES "/");
const QStringList soundNames = {u"bell"_s, u"mail"_s, u"online"_s, u"message"_s, u"file"_s, u"login"_s};

/// Runs a script of the themes with one argument; what it said when it failed, else empty.
QString runScript(const char* script, const QString& argument)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"/usr/bin/python3"_s, {themes + QString::fromUtf8(script), argument});
    if (!process.waitForFinished(patience))
        return process.errorString();
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAll());
}

QStringList filesIn(const QString& folder, const QString& pattern)
{
    return QDir(folder).entryList({pattern}, QDir::Files, QDir::Name);
}

void expectSameFiles(const QString& made, const QString& kept, const QString& pattern)
{
    const QStringList names = filesIn(kept, pattern);
    ASSERT_FALSE(names.isEmpty());
    EXPECT_EQ(filesIn(made, pattern), names);
    for (const QString& name : names)
        EXPECT_TRUE(soundfiles::readBytes(made + u'/' + name) == soundfiles::readBytes(kept + u'/' + name))
            << name.toStdString() << " differs from what its script makes";
}

std::map<QString, std::shared_ptr<const SoundClip>> sounds()
{
    std::map<QString, std::shared_ptr<const SoundClip>> clips;
    for (const QString& name : soundNames)
        clips[name] = decodeSound(themes + u"sounds/default/%1.wav"_s.arg(name)).clip;
    return clips;
}

/// The root mean square of the loudest 250 ms.
double loudness(const SoundClip& clip)
{
    const auto width = static_cast<std::size_t>(clip.rate / 4);
    double energy = 0;
    double most = 0;
    for (std::size_t i = 0; i < clip.samples.size(); ++i) {
        energy += std::pow(clip.samples[i], 2);
        energy -= i >= width ? std::pow(clip.samples[i - width], 2) : 0;
        most = std::max(most, energy);
    }
    return std::sqrt(most / static_cast<double>(width));
}

/// A picture of that size in which something can be seen, and something be seen through.
void expectPicture(const QString& file, int size)
{
    const QImage image(file);
    ASSERT_EQ(image.size(), QSize(size, size)) << file.toStdString();
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << file.toStdString();
    EXPECT_EQ(image.pixelColor(size / 2, size / 3).alpha(), 255) << file.toStdString();
}

} // namespace

TEST(SoundTheme, IsWhatItsScriptMakes)
{
    if (!QFile::exists(u"/usr/bin/python3"_s))
        GTEST_SKIP() << "/usr/bin/python3 is not installed";
    const QTemporaryDir folder;
    EXPECT_EQ(runScript("make-sounds", folder.path()).toStdString(), "");
    expectSameFiles(folder.path(), themes + u"sounds/default"_s, u"*.wav"_s);
}

TEST(SoundTheme, HoldsTheSixSoundsShortAndInOneFormat)
{
    for (const auto& [name, clip] : sounds()) {
        ASSERT_NE(clip, nullptr) << name.toStdString();
        EXPECT_EQ(clip->rate, 44100);
        EXPECT_EQ(clip->channels, 1);
        EXPECT_LT(clip->duration().count(), 1200) << name.toStdString();
    }
    EXPECT_EQ(filesIn(themes + u"sounds/default"_s, u"*"_s).size(), soundNames.size());
}

TEST(SoundTheme, IsEquallyLoudThroughoutAndNeverTooLoud)
{
    for (const auto& [name, clip] : sounds()) {
        ASSERT_NE(clip, nullptr) << name.toStdString();
        const float peak = *std::max_element(clip->samples.begin(), clip->samples.end(),
                                             [](float a, float b) { return std::abs(a) < std::abs(b); });
        EXPECT_LE(20 * std::log10(std::abs(peak)), -3.0) << name.toStdString();
        EXPECT_NEAR(20 * std::log10(loudness(*clip) / 0.17), 0.0, 0.5) << name.toStdString();
        EXPECT_LT(std::abs(clip->samples.front()), 0.01F) << name.toStdString() << " begins with a click";
        EXPECT_LT(std::abs(clip->samples.back()), 0.01F) << name.toStdString() << " ends with a click";
    }
}

TEST(SoundTheme, HasSoundsThatDiffer)
{
    const auto clips = sounds();
    for (const auto& [one, first] : clips) {
        for (const auto& [other, second] : clips) {
            ASSERT_TRUE(first && second);
            if (one < other) {
                EXPECT_LT(likeness(first->samples, second->samples), 0.7) << one.toStdString() << other.toStdString();
            }
        }
    }
}

TEST(PictureThemes, AreWhatTheirScriptDraws)
{
    if (QStandardPaths::findExecutable(u"rsvg-convert"_s).isEmpty())
        GTEST_SKIP() << "rsvg-convert (librsvg2-bin) is not installed";
    const QTemporaryDir folder;
    EXPECT_EQ(runScript("make-pictures", folder.path()).toStdString(), "");
    for (const char* theme : {"icons/default", "roster/default"}) {
        const QString made = folder.filePath(QString::fromUtf8(theme));
        const QString kept = themes + QString::fromUtf8(theme);
        expectSameFiles(made + u"/svg"_s, kept + u"/svg"_s, u"*.svg"_s);
        // The renderer's versions may differ by a shade: of the pictures only the names are compared.
        EXPECT_EQ(filesIn(made + u"/icons"_s, u"*"_s), filesIn(kept + u"/icons"_s, u"*"_s));
    }
}

TEST(PictureThemes, HaveAPictureForEachTypeOfTheCatalogue)
{
    const QTemporaryDir folder;
    const zepa::Settings settings(folder.path());
    ZepaNotificationModule* const module = ZepaNotificationModule::getInstance();
    ZepaNotificationModule::init();
    const QStringList types = module->getNotifications().keys();
    ASSERT_EQ(types.size(), 18);
    for (const QString& type : types)
        expectPicture(themes + u"icons/default/icons/%1.png"_s.arg(type), 64);
    delete module;
}

TEST(PictureThemes, HaveThePicturesOfTheMethodsAndTheProgram)
{
    const QString icons = themes + u"icons/default/icons/"_s;
    for (const char* name : {"speaker", "popup", "chat", "attention", "speech", "log", "command", "zepa"})
        expectPicture(icons + QString::fromUtf8(name) + u".png"_s, 64);
    for (const int size : {16, 22, 24, 32, 48, 128, 256})
        expectPicture(icons + u"zepa-%1.png"_s.arg(size), size);
}

TEST(PictureThemes, HaveThePresencesInThreeSizes)
{
    const QString icons = themes + u"roster/default/icons/"_s;
    for (const char* name : {"avail", "chat", "away", "xa", "busy", "invisible", "unavail", "connecting", "unknown"}) {
        expectPicture(icons + QString::fromUtf8(name) + u".png"_s, 64);
        for (const int size : {22, 32})
            expectPicture(icons + u"%1-%2.png"_s.arg(QString::fromUtf8(name)).arg(size), size);
    }
}

TEST(Themes, AreWhereTheSettingsLookForThem)
{
    const QTemporaryDir folder;
    const zepa::Settings settings(folder.path());
    EXPECT_TRUE(QFile::exists(settings.getCurrentThemeDir() + u"icons/speaker.png"_s));
    EXPECT_TRUE(QFile::exists(settings.getCurrentRosterThemeDir() + u"icons/unavail.png"_s));
    EXPECT_TRUE(QFile::exists(settings.getCurrentSoundThemeDir() + u"bell.wav"_s));
}
