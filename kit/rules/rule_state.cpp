// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_state.h"

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/rules/method_titles.h"

#include <algorithm>

namespace zepa {

namespace {

bool sameValue(const ZepaField& a, const ZepaField& b)
{
    return a.getId() == b.getId() && a.getText() == b.getText();
}

/// The method's own fields with the values that `config` has for them: what a rule makes of a configuration.
QList<ZepaField> fieldsWith(const ZepaNotificationMethod& method, const QList<ZepaField>& config)
{
    QList<ZepaField> fields;
    for (const ZepaField& field : method.fields) {
        const auto isIt = [&field](const ZepaField& other) { return other.getId() == field.getId(); };
        if (std::any_of(fields.cbegin(), fields.cend(), isIt))
            continue;
        const auto value = std::find_if(config.crbegin(), config.crend(), isIt);
        fields.append(value == config.crend() ? field : *value);
    }
    return fields;
}

/// Whether nothing but values of one rule differs, and that rule is the one that the module would change: the newest
/// of its pair.
bool isChangeOfOneRule(const QList<RuleState>& now, const QList<RuleState>& wanted)
{
    if (now.size() != wanted.size())
        return false;
    const auto [mine, theirs] = std::mismatch(now.cbegin(), now.cend(), wanted.cbegin());
    if (mine == now.cend() || mine->method != theirs->method)
        return false;
    const QString method = mine->method;
    const bool newest =
        std::none_of(now.cbegin(), mine, [&method](const RuleState& rule) { return rule.method == method; });
    return newest && std::equal(mine + 1, now.cend(), theirs + 1);
}

} // namespace

bool RuleState::operator==(const RuleState& other) const
{
    return method == other.method &&
           std::equal(fields.cbegin(), fields.cend(), other.fields.cbegin(), other.fields.cend(), sameValue);
}

RuleState stateOf(const ZepaNotificationRule& rule)
{
    return {rule.getMethod()->getId(), fieldsWith(*rule.getMethod(), rule.getConfig())};
}

QList<RuleState> rulesOf(const ZepaNotificationModule& module, const QString& typeId)
{
    QList<RuleState> states;
    const QList<ZepaNotificationRule*> rules = module.getRules(module.getNotifications().value(typeId));
    for (const ZepaNotificationRule* rule : rules)
        states.append(stateOf(*rule));
    return states;
}

QList<RuleState> defaultRulesOf(const ZepaNotificationModule& module, const QString& typeId)
{
    QList<RuleState> states;
    const QList<ZepaNotificationMethod*> methods = methodsInOrder(module);
    for (const ZepaNotificationMethod* method : methods) {
        const QList<ZepaField> config = method->getDefaultNotificationConfig(typeId);
        if (zepaHasDefaultRule(config))
            states.append({method->getId(), fieldsWith(*method, config)});
    }
    return states;
}

QList<ZepaField> initialFields(const ZepaNotificationModule& module, const QString& typeId, const QString& methodId)
{
    const ZepaNotificationMethod* method = module.getMethods().value(methodId);
    if (!method)
        return {};
    const QList<ZepaField> config = method->getDefaultNotificationConfig(typeId);
    return fieldsWith(*method, zepaHasDefaultRule(config) ? config : QList<ZepaField>());
}

void updateRule(ZepaNotificationModule& module, const QString& typeId, const QString& methodId,
                QList<ZepaField>& fields)
{
    ZepaNotificationRule* rule = module.getNotificationRule(typeId, methodId);
    if (!rule) {
        module.addNotificationRule(typeId, methodId, fields);
        return;
    }
    rule->setConfig(fields);
    module.storeNotificationRules(module.getNotifications().value(typeId));
}

void applyRules(ZepaNotificationModule& module, const QString& typeId, const QList<RuleState>& wanted)
{
    const QList<RuleState> now = rulesOf(module, typeId);
    if (isChangeOfOneRule(now, wanted)) {
        RuleState changed = *std::mismatch(now.cbegin(), now.cend(), wanted.cbegin()).second;
        updateRule(module, typeId, changed.method, changed.fields);
        return;
    }

    // From the oldest on: what stands there already in the wanted order may stay.
    const QList<ZepaNotificationRule*> rules = module.getRules(module.getNotifications().value(typeId));
    qsizetype missing = wanted.size();
    QList<ZepaNotificationRule*> surplus;
    for (qsizetype i = now.size() - 1; i >= 0; --i) {
        if (missing > 0 && now[i] == wanted[missing - 1])
            --missing;
        else
            surplus.append(rules[i]);
    }
    for (ZepaNotificationRule* rule : std::as_const(surplus))
        module.removeNotificationRule(rule);
    while (missing > 0) {
        RuleState rule = wanted[--missing];
        module.addNotificationRule(typeId, rule.method, rule.fields);
    }
}

} // namespace zepa
