// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/answer_token.h"
#include "kit/journal/posting.h"
#include "kit/journal/recorder.h"
#include "kit/journal/report.h"

#include <functional>

namespace zepa {

/// Announces the event: the one way by which everything in a client posts. When the report says that a pop-up
/// waits, `answered` (which may be empty) is called once: later, from the event loop, or when the
/// client ends.
Report announce(const Recorder& recorder, const Posting& posting, std::function<void(Answer)> answered = {});

} // namespace zepa
