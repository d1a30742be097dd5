// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class ZepaNotificationModule;

namespace zepa {

/// Whether the rule file of the type holds the very rules that the module has for it now. `settingsFolder` ends in a
/// separator.
bool rulesAreStored(const ZepaNotificationModule& module, const QString& settingsFolder, const QString& typeId);

} // namespace zepa
