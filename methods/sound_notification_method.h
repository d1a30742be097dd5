// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "core/notification_method.h"

/// Plays a sound file through the client's audio service.
///
/// Setting of a rule: "sound_file", absolute or relative to the sound theme. Alerts ("alert_received_notify") are
/// filtered by the global setting "alerts": "always", "never", or "buddies_only" (the default), which asks whether the
/// sender, the posting's first argument, is on the contact list.
class ZEPA_NOTIFICATION_EXPORT ZepaSoundNotificationMethod : public ZepaNotificationMethod
{
public:
    ZepaSoundNotificationMethod();
    ~ZepaSoundNotificationMethod() override;

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;
};
