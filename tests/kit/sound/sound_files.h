// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFile>
#include <QString>

#include <cmath>
#include <sndfile.h>
#include <vector>

/// Small sound files for tests.
namespace soundfiles {

/// A swept tone, so that no part of it looks like another.
inline std::vector<float> sweep(int frames, int channels = 1, double rate = 44100)
{
    std::vector<float> samples;
    for (int frame = 0; frame < frames; ++frame) {
        const double time = frame / rate;
        for (int channel = 0; channel < channels; ++channel)
            samples.push_back(static_cast<float>(0.5 * std::sin(6.283 * (300 + 800 * time) * time + channel)));
    }
    return samples;
}

/// False when libsndfile cannot write it.
inline bool write(const QString& path, int format, const std::vector<float>& samples, int channels = 1,
                  int rate = 44100)
{
    SF_INFO info = {};
    info.samplerate = rate;
    info.channels = channels;
    info.format = format;
    SNDFILE* const file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (!file)
        return false;
    const auto count = static_cast<sf_count_t>(samples.size());
    // In small portions: the Vorbis encoder of some versions overflows its stack on a large one.
    bool good = true;
    for (sf_count_t done = 0; good && done < count;) {
        const sf_count_t portion = std::min<sf_count_t>(count - done, 4096 - 4096 % channels);
        good = sf_write_float(file, samples.data() + done, portion) == portion;
        done += portion;
    }
    return sf_close(file) == 0 && good;
}

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QFile::WriteOnly))
        file.write(bytes);
}

inline QByteArray readBytes(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace soundfiles
