// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"
#include "kit/journal/posting.h"
#include "kit/journal/report.h"

#include <QString>

/// From what the user wrote to a posting, and from its report to words.
namespace zepa::cli {

/// Whether the answer to the event's pop-up is to be learnt when the event has no action, too.
enum class Answers { AsTheEventSays, Always };

/// `folder` is where a command runs that a click starts.
Posting postingOf(const Event& event, Answers answers, const QString& folder = {});

/// Why nothing was shown by a pop-up; empty when one was handed on to a notification service.
QString whyNoPopup(const Event& event, const Report& report);

/// That the picture is not shown, and why; empty when there is nothing to say. `name` is what the user calls it.
QString pictureProblemText(const QString& name, const Report& report);

} // namespace zepa::cli
