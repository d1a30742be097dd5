// SPDX-License-Identifier: Apache-2.0
#include "core/notification_rule.h"

#include "core/notification_method.h"

#include <utility>

ZepaNotificationRule::ZepaNotificationRule(ZepaNotification* notification_, ZepaNotificationMethod* method_,
                                           const QList<ZepaField>& config_)
    : notification(notification_)
{
    setMethod(method_);
    setConfig(config_);
}

void ZepaNotificationRule::setMethod(ZepaNotificationMethod* newMethod)
{
    config.clear();
    method = newMethod;
    for (const ZepaField& field : std::as_const(method->fields)) {
        const QString id = field.getId();
        if (!config.contains(id))
            config.insert(id, field);
    }
}

void ZepaNotificationRule::setConfig(const QList<ZepaField>& newConfig)
{
    for (const ZepaField& field : newConfig) {
        const auto known = config.find(field.getId());
        if (known != config.end())
            *known = field;
    }
}

void ZepaNotificationRule::operator()(unsigned int sequence, const QString& title, const QString& text,
                                      const QString& icon, const QString& extra, const ZepaPluginAction& action,
                                      const QList<ZepaArg>& args)
{
    method->postNotification(sequence, notification, title, text, icon, extra, config.values(), action, args);
}
