// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <functional>

class ZepaNotificationModule;

namespace zepa {

class RuleBackup;
class RuleLock;

/// What became of a change of rules.
enum class SafeChange {
    Stored,            ///< on the disk, with a copy
    StoredWithoutCopy, ///< on the disk; nothing more can be changed before there is room for a copy
    NotStored,         ///< made in the module only: the files hold what they held before
    /// not made: the type's file cannot be written, or a file has no copy that could be put back, or the client's
    /// settings ignore HiddenRuleFolder
    Refused,
    Busy ///< not made: another client has the rule files for longer than anyone waits
};

/// Calls `edit`, which changes the rules of that type through the module's operations, as many as it takes, and sees to
/// it that the disk has them. The way for all changes of rules: whatever was stored once is there after a crash at any
/// moment, on a full disk, and whatever other clients do meanwhile; and a change that was cut off is there as a whole
/// or not at all. When `edit` is called, the module has the rules that the files hold.
///
/// @param lock  of the backup's rule folder; waited for when it is not held yet, which blocks
SafeChange changeSafely(ZepaNotificationModule& module, RuleBackup& backup, RuleLock& lock, const QString& typeId,
                        const std::function<void()>& edit);

/// What is wrong, in words for the user; empty for Stored.
QString problemWith(SafeChange change, const QString& typeId);

} // namespace zepa
