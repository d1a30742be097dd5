// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "host/arg.h"
#include "host/field.h"
#include "host/plugin_action.h"

#include <QHash>
#include <QList>
#include <QString>

class ZepaNotification;
class ZepaNotificationMethod;

/// Binds one notification type to one method, with the setting values for that pair. Owns neither of the two.
///
/// Its fields are always those that the method declares: callers can change values, never add or remove fields.
class ZEPA_NOTIFICATION_EXPORT ZepaNotificationRule
{
public:
    /// `method` must not be null, here and in setMethod().
    ZepaNotificationRule(ZepaNotification* notification, ZepaNotificationMethod* method,
                         const QList<ZepaField>& config);

    /// Changes the method; every setting becomes the new method's initial value. When the method declares an
    /// identifier twice, its first field counts.
    void setMethod(ZepaNotificationMethod* method);
    /// Takes over the fields whose identifiers the rule knows and drops the others. The last of two equal ones counts.
    void setConfig(const QList<ZepaField>& config);
    /// Delivers one posting through the method, with this rule's notification and settings.
    void operator()(unsigned int sequence, const QString& title, const QString& text, const QString& icon,
                    const QString& extra, const ZepaPluginAction& action, const QList<ZepaArg>& args);

    ZepaNotification* getNotification() const { return notification; }
    ZepaNotificationMethod* getMethod() const { return method; }
    /// The current setting fields, in no particular order.
    QList<ZepaField> getConfig() const { return config.values(); }

private:
    ZepaNotification* notification;
    ZepaNotificationMethod* method = nullptr;
    QHash<QString, ZepaField> config;
};
