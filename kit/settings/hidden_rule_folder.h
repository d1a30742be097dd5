// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QtGlobal>

namespace zepa {

/// While an object of this class lives, ZepaSettingsManager::getSettingsDir() must name a folder that cannot exist: the
/// library then finds no rule files, and stores none. The kit uses it to bring the module's rules up to files that
/// another process has written. A client with a ZepaSettingsManager of its own asks isActive() there, as `Settings`
/// does; otherwise every change of rules is refused. Main thread only.
class ZEPA_KIT_EXPORT HiddenRuleFolder
{
public:
    HiddenRuleFolder() { ++s_count; }
    ~HiddenRuleFolder() { --s_count; }
    Q_DISABLE_COPY_MOVE(HiddenRuleFolder)

    static bool isActive() { return s_count > 0; }

private:
    static inline int s_count = 0;
};

} // namespace zepa
