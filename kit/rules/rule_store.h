// SPDX-License-Identifier: Apache-2.0
#pragma once

class ZepaNotificationModule;

namespace zepa {

class RuleBackup;
class SettingStore;

/// What rules live in, for everything that shows or changes them. All three must outlive the objects that use it, and
/// the module must have been initialized.
struct RuleStore
{
    ZepaNotificationModule& module;
    RuleBackup& backup;
    SettingStore& settings;
};

} // namespace zepa
