// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"

namespace zepa::cli {

std::vector<CommandPointer> allCommands()
{
    std::vector<CommandPointer> commands;
    for (const auto make : {makePost, makePlay, makeTypes, makeMethods, makeRules, makeRuleSet, makeRuleRemove,
                            makeSettingGet, makeSettingSet})
        commands.push_back(make());
    return commands;
}

} // namespace zepa::cli
