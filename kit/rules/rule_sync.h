// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

class ZepaNotificationModule;

namespace zepa {

class RuleBackup;

/// What the library writes for the type: byte for byte, since it asks the same of the same classes.
QByteArray ruleFileOf(const ZepaNotificationModule& module, const QString& typeId);

/// Mends what a crash of any client left, and gives the module the rules that the files hold, where another client
/// changed them since they were read. Rules that could not be stored stay as long as nobody changes their file. A type
/// without a file keeps its rules until the next start. The rule lock must be held.
///
/// False, and nothing is read or written, when the client's ZepaSettingsManager ignores HiddenRuleFolder: to take rules
/// over would then overwrite the files that they come from. Written to the log the first time.
bool bringUpToDate(ZepaNotificationModule& module, RuleBackup& backup);

} // namespace zepa
