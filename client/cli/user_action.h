// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa::cli {

/// What a click is to start, as the user wrote it: an address ("https://...", "mailto:...") opens with the program
/// that the desktop has for it; anything else is a command line with its words split at blanks, where double quotes
/// keep words together. No shell sees it.

/// Why it cannot be started, in words for the user; empty when it seems it can.
QString problemWithAction(const QString& action);

/// Starts it and returns at once; a failure is said on standard error. What is started finds the desktop's token for
/// coming to the front, when there is one, in XDG_ACTIVATION_TOKEN.
/// A command runs in `folder`.
void startAction(const QString& action, const QString& folder = {});

} // namespace zepa::cli
