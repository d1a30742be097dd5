// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

/// Where the first sound of a recording begins; its size when all is silent.
std::size_t beginOfSound(const std::vector<float>& recording);

/// How much a recording's first sound is like `source`, from 0 to 1, whatever its volume; 1 is the same curve.
///
/// The source is followed through the recording in pieces of 50 ms, each correlated where it fits best within 20 ms of
/// where the one before would put it: a sound server on a busy machine leaves out or repeats a few samples now and
/// then.
double likeness(const std::vector<float>& recording, const std::vector<float>& source);
