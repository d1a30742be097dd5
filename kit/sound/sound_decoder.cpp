// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/sound_decoder.h"

#include "kit/files/regular_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sndfile.h>

using namespace Qt::StringLiterals;

namespace zepa::audio {
namespace {

struct CloseSound
{
    void operator()(SNDFILE* file) const { sf_close(file); }
};

DecodedSound refused(const QString& reason)
{
    return {nullptr, reason};
}

/// Empty when the format is one that we play. The number of frames is the header's word only: the reader counts too.
QString whyNotToRead(const SF_INFO& info)
{
    if (info.channels < 1 || info.channels > SoundLimits::channels)
        return u"%1 channels"_s.arg(info.channels);
    if (info.samplerate < SoundLimits::minRate || info.samplerate > SoundLimits::maxRate)
        return u"%1 frames a second"_s.arg(info.samplerate);
    if (info.frames > static_cast<sf_count_t>(SoundLimits::samples) / info.channels)
        return u"too long: %1 frames"_s.arg(info.frames);
    return {};
}

/// Floating-point files may hold anything; a sound server and the listener's ears should not get it.
float tamed(float sample)
{
    return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F;
}

DecodedSound read(SNDFILE* file, const SF_INFO& info)
{
    auto clip = std::make_shared<SoundClip>();
    clip->rate = info.samplerate;
    clip->channels = info.channels;

    std::array<float, 8192> block{};
    const auto framesPerBlock = static_cast<sf_count_t>(block.size()) / info.channels;
    while (const sf_count_t frames = sf_readf_float(file, block.data(), framesPerBlock)) {
        if (frames < 0)
            break;
        const auto count = static_cast<std::size_t>(frames) * static_cast<std::size_t>(info.channels);
        if (clip->samples.size() + count > SoundLimits::samples)
            return refused(u"too long, and its header does not say so"_s);
        std::transform(block.data(), block.data() + count, std::back_inserter(clip->samples), tamed);
    }
    if (sf_error(file) != SF_ERR_NO_ERROR)
        return refused(u"damaged: %1"_s.arg(QString::fromUtf8(sf_strerror(file))));
    if (clip->samples.empty())
        return refused(u"holds no sound"_s);
    return {std::move(clip), {}};
}

} // namespace

DecodedSound decodeSound(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return refused(u"not a file name"_s);
    const RegularFile opened = RegularFile::openToRead(path, SoundLimits::fileBytes);
    if (!opened.isOpen())
        return refused(opened.reason());

    SF_INFO info = {};
    const std::unique_ptr<SNDFILE, CloseSound> file(sf_open_fd(opened.descriptor(), SFM_READ, &info, SF_FALSE));
    if (!file)
        return refused(u"no sound format: %1"_s.arg(QString::fromUtf8(sf_strerror(nullptr))));
    if (const QString reason = whyNotToRead(info); !reason.isEmpty())
        return refused(reason);
    return read(file.get(), info);
}

} // namespace zepa::audio
