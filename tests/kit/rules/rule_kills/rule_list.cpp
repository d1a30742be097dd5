// SPDX-License-Identifier: Apache-2.0
#include "rule_list.h"

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"

QString RuleValue::text() const
{
    QStringList parts;
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        parts.append(field.key() + u'=' + field.value());
    return method + u'{' + parts.join(u',') + u'}';
}

RuleList rulesOf(const ZepaNotificationModule& module, const QString& type)
{
    RuleList list;
    const auto rules = module.getRules(module.getNotifications().value(type));
    for (const ZepaNotificationRule* rule : rules) {
        RuleValue value{rule->getMethod()->getId(), {}};
        const QList<ZepaField> fields = rule->getConfig();
        for (const ZepaField& field : fields)
            value.fields.insert(field.getId(), field.getText());
        list.append(value);
    }
    return list;
}

QStringList textsOf(const RuleList& rules)
{
    QStringList texts;
    for (const RuleValue& rule : rules)
        texts.append(rule.text());
    texts.sort();
    return texts;
}

int missingFrom(QStringList found, const QStringList& wanted)
{
    int missing = 0;
    for (const QString& text : wanted)
        missing += found.removeOne(text) ? 0 : 1;
    return missing;
}
