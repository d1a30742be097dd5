// SPDX-License-Identifier: Apache-2.0
#include "entries.h"
#include "kit/sound/sound_decoder.h"

#include <algorithm>
#include <cmath>
#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

void readSoundFile(const QByteArray& input)
{
    // A file in memory: the decoder takes a name, and a disk would be the slowest part.
    const int memory = memfd_create("sound", MFD_CLOEXEC);
    require(memory >= 0, "there is a file in memory");
    require(write(memory, input.constData(), size_t(input.size())) == input.size(), "it holds the input");
    const audio::DecodedSound sound = audio::decodeSound(u"/proc/self/fd/%1"_s.arg(memory));
    close(memory);

    require((sound.clip == nullptr) != sound.reason.isEmpty(), "there is a clip or a reason");
    if (!sound.clip)
        return;
    const audio::SoundClip& clip = *sound.clip;
    require(clip.channels >= 1 && clip.channels <= audio::SoundLimits::channels, "few channels");
    require(clip.rate >= audio::SoundLimits::minRate && clip.rate <= audio::SoundLimits::maxRate, "a usual rate");
    require(!clip.samples.empty() && clip.samples.size() <= audio::SoundLimits::samples, "not too long");
    require(clip.samples.size() % std::size_t(clip.channels) == 0, "whole frames");
    require(std::all_of(clip.samples.begin(), clip.samples.end(), [](float s) { return std::abs(s) <= 1.0F; }),
            "samples within -1 to 1");
}

} // namespace zepa::fuzz
