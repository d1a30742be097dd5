// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

class ZepaNotificationModule;

/// The module says nothing when a rule file cannot be written. These look at the files themselves.
namespace zepa {

/// The rule file of the type; it need not exist. `settingsFolder` ends in a separator, here and below.
QString ruleFilePath(const QString& settingsFolder, const QString& typeId);

/// Whether the rule file of the type can be opened for writing, as far as permissions tell. A full disk is seen only
/// afterwards.
bool mayStoreRules(const QString& settingsFolder, const QString& typeId);

/// Whether the rule file of the type holds the very rules that the module has for it now.
bool rulesAreStored(const ZepaNotificationModule& module, const QString& settingsFolder, const QString& typeId);

/// The types that have rules, and those of `alsoTypeIds`, for which rulesAreStored() says no.
QStringList typesNotStored(const ZepaNotificationModule& module, const QString& settingsFolder,
                           const QStringList& alsoTypeIds);

} // namespace zepa
