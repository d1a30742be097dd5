// SPDX-License-Identifier: Apache-2.0
#include "tests/client/audio/likeness.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float audible = 1.0F / 32768.0F;

double correlation(const std::vector<float>& recording, std::size_t from, const std::vector<float>& source)
{
    double both = 0;
    double one = 0;
    double other = 0;
    for (std::size_t i = 0; i < source.size(); ++i) {
        const double heard = from + i < recording.size() ? recording[from + i] : 0.0;
        const double meant = source[i];
        both += heard * meant;
        one += heard * heard;
        other += meant * meant;
    }
    return one > 0 && other > 0 ? std::abs(both) / std::sqrt(one * other) : 0;
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
    constexpr std::size_t around = 882;
    const std::size_t begin = beginOfSound(recording);
    double best = 0;
    for (std::size_t from = begin - std::min(begin, around); from < begin + around && from < recording.size(); ++from)
        best = std::max(best, correlation(recording, from, source));
    return best;
}
