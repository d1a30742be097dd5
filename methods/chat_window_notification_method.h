// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "core/notification_method.h"

/// Writes the posting's text as an information line into the buddy's chat window, if the user has it open.
///
/// The buddy is the posting's first argument. The method has no settings and opens no window.
class ZEPA_NOTIFICATION_EXPORT ZepaChatWindowNotificationMethod : public ZepaNotificationMethod
{
public:
    ZepaChatWindowNotificationMethod();
    ~ZepaChatWindowNotificationMethod() override;

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;
};
