// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QList>
#include <QString>

class ZepaNotificationModule;
class ZepaNotificationRule;

namespace zepa {

/// One rule of a type as a value: it can be kept and compared when the rule itself is gone.
struct RuleState
{
    QString method;          ///< identifier of the method
    QList<ZepaField> fields; ///< in the order in which the method declares them

    /// The same method and the same values.
    bool operator==(const RuleState& other) const;
    bool operator!=(const RuleState& other) const { return !(*this == other); }
};

RuleState stateOf(const ZepaNotificationRule& rule);

/// The rules of a type, newest first; none for an unknown type.
QList<RuleState> rulesOf(const ZepaNotificationModule& module, const QString& typeId);

/// What "restore the defaults" gives the type: the default rule of each installed method that has one, newest first.
QList<RuleState> defaultRulesOf(const ZepaNotificationModule& module, const QString& typeId);

/// A new rule for the pair has these fields: the method's default for the type, or its initial values where it has no
/// default. Null identifiers or unknown ones give no fields.
QList<ZepaField> initialFields(const ZepaNotificationModule& module, const QString& typeId, const QString& methodId);

/// Gives the newest rule of the pair these fields, or adds one when there is none, and stores the rules of this type
/// alone: the module's own operation rewrites the files of all types, and each of them once for every rule in it.
void updateRule(ZepaNotificationModule& module, const QString& typeId, const QString& methodId,
                QList<ZepaField>& fields);

/// Makes the rules of the type those of `wanted`, newest first, with as few changes as the module's operations allow.
/// New rules go in front of the others, so to get an order back means to take rules out and add them again. A rule
/// whose method is not installed any more cannot be added: look at rulesOf() afterwards.
void applyRules(ZepaNotificationModule& module, const QString& typeId, const QList<RuleState>& wanted);

} // namespace zepa
