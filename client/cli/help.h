// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/commands.h"

#include <QString>

#include <vector>

namespace zepa::cli {

/// "zepa rule set TYPE METHOD FIELD=VALUE..."
QString usage(const Command& command);
/// What `zepa --help` shows: every verb with an example, the options that all have, and the exit codes.
QString overview(const std::vector<CommandPointer>& commands);
/// What `zepa VERB --help` shows.
QString manual(const Command& command);

} // namespace zepa::cli
