// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/command.h"

#include <memory>
#include <vector>

namespace zepa::cli {

using CommandPointer = std::unique_ptr<Command>;

CommandPointer makePost();
CommandPointer makePlay();
CommandPointer makeTypes();
CommandPointer makeMethods();
CommandPointer makeRules();
CommandPointer makeRuleSet();
CommandPointer makeRuleRemove();
CommandPointer makeSettingGet();
CommandPointer makeSettingSet();

/// All verbs, in the order of the help.
std::vector<CommandPointer> allCommands();

} // namespace zepa::cli
