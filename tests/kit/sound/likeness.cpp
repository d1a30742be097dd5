// SPDX-License-Identifier: Apache-2.0
#include "tests/kit/sound/likeness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr float audible = 1.0F / 32768.0F;
constexpr std::size_t piece = 2205;
constexpr std::ptrdiff_t around = 882;

struct Products
{
    double both = 0;
    double heard = 0;
    double meant = 0;
};

/// Of `count` samples of the source at `at` with the recording at `from`.
Products products(const std::vector<float>& recording, std::ptrdiff_t from, const std::vector<float>& source,
                  std::size_t at, std::size_t count)
{
    Products sums;
    const auto size = static_cast<std::ptrdiff_t>(recording.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::ptrdiff_t place = from + static_cast<std::ptrdiff_t>(i);
        const double heard = place >= 0 && place < size ? recording[static_cast<std::size_t>(place)] : 0.0;
        const double meant = source[at + i];
        sums.both += heard * meant;
        sums.heard += heard * heard;
        sums.meant += meant * meant;
    }
    return sums;
}

} // namespace

std::size_t beginOfSound(const std::vector<float>& recording)
{
    const auto first =
        std::find_if(recording.begin(), recording.end(), [](float sample) { return std::abs(sample) >= audible; });
    return static_cast<std::size_t>(first - recording.begin());
}

double likeness(const std::vector<float>& recording, const std::vector<float>& source)
{
    Products all;
    auto shift =
        static_cast<std::ptrdiff_t>(beginOfSound(recording)) - static_cast<std::ptrdiff_t>(beginOfSound(source));
    for (std::size_t at = 0; at < source.size(); at += piece) {
        const std::size_t count = std::min(piece, source.size() - at);
        Products best;
        std::ptrdiff_t bestShift = shift;
        for (std::ptrdiff_t tried = shift - around; tried <= shift + around; ++tried) {
            const Products here = products(recording, static_cast<std::ptrdiff_t>(at) + tried, source, at, count);
            if (here.both > best.both) {
                best = here;
                bestShift = tried;
            }
            best.meant = here.meant;
        }
        shift = bestShift;
        all.both += best.both;
        all.heard += best.heard;
        all.meant += best.meant;
    }
    return all.heard > 0 && all.meant > 0 ? all.both / std::sqrt(all.heard * all.meant) : 0;
}
