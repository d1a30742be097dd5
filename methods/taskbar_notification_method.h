// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "core/notification_method.h"

/// Draws the user's attention to the application: a bounce of its icon in the dock, or what the desktop has instead.
/// No settings.
class ZEPA_NOTIFICATION_EXPORT ZepaTaskbarNotificationMethod : public ZepaNotificationMethod
{
public:
    ZepaTaskbarNotificationMethod();
    ~ZepaTaskbarNotificationMethod() override;

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;
};

/// Asks once, and not insistently, for the user's attention. Without effect while the application is active.
ZEPA_NOTIFICATION_EXPORT void bounceDockIcon();
