// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace zepa::audio {

/// A whole sound in memory.
struct SoundClip
{
    std::vector<float> samples; ///< interleaved, each finite and within -1 to 1
    int rate = 0;               ///< frames a second
    int channels = 0;

    std::size_t frames() const { return samples.size() / static_cast<std::size_t>(channels); }

    std::chrono::milliseconds duration() const
    {
        return std::chrono::milliseconds(frames() * 1000 / static_cast<std::size_t>(rate));
    }
};

} // namespace zepa::audio
