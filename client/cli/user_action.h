// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa::cli {

/// What a click is to start, as the user wrote it: an address ("https://...", "mailto:...") opens with the program
/// that the desktop has for it; anything else is a command line, read as splitWords() does. No shell sees it. A command
/// runs in `folder`, which is absolute, or else in this program's working folder; a program that is named with a slash
/// is looked for there.

/// Why it cannot be started, in words for the user; empty when it seems it can.
QString problemWithAction(const QString& action, const QString& folder = {});

/// Starts it and returns at once; a failure is said on standard error. What is started finds the desktop's token for
/// coming to the front, when there is one, in XDG_ACTIVATION_TOKEN.
void startAction(const QString& action, const QString& folder = {});

} // namespace zepa::cli
