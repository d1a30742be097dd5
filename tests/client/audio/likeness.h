// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

/// Where the first sound of a recording begins; its size when all is silent.
std::size_t beginOfSound(const std::vector<float>& recording);

/// How much a recording's first sound is like `source`, from 0 to 1, whatever its volume: the best normalised
/// correlation of the whole source with the recording, within 20 ms around the place where the sound begins. 1 is the
/// same curve.
double likeness(const std::vector<float>& recording, const std::vector<float>& source);
