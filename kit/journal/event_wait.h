// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>

namespace zepa {

/// Handles events until `done` says so, at once when it does already; false when `limit` passed before.
bool handleEventsUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

} // namespace zepa
