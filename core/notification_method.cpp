// SPDX-License-Identifier: Apache-2.0
#include "core/notification_method.h"

ZepaNotificationMethod::ZepaNotificationMethod() = default;

ZepaNotificationMethod::~ZepaNotificationMethod() = default;

void ZepaNotificationMethod::registerNotification(ZepaNotification* /*notification*/)
{}

void ZepaNotificationMethod::registerNotifications(const QList<ZepaNotification*>& /*notifications*/)
{}

void ZepaNotificationMethod::setDefaultNotificationConfig(const QString& id, const QList<ZepaField>& config)
{
    defaultConfigs.insert(id, config);
}

QList<ZepaField> ZepaNotificationMethod::getDefaultNotificationConfig(const QString& id) const
{
    return defaultConfigs.value(id, {ZepaField()});
}
