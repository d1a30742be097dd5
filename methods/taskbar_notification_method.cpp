// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"

#include <QCoreApplication>

ZepaTaskbarNotificationMethod::ZepaTaskbarNotificationMethod()
{
    setDefaultNotificationConfig(QStringLiteral("message_received_background"), {});
    setDefaultNotificationConfig(QStringLiteral("message_received_initial"), {});
}

ZepaTaskbarNotificationMethod::~ZepaTaskbarNotificationMethod() = default;

QString ZepaTaskbarNotificationMethod::getId() const
{
    return QStringLiteral("zepa_dock_bounce_notification_method");
}

QString ZepaTaskbarNotificationMethod::getActionName() const
{
    return QCoreApplication::translate("translation", "Bounce dock icon", "nc");
}

QString ZepaTaskbarNotificationMethod::getActionIcon() const
{
    return {};
}

void ZepaTaskbarNotificationMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* /*notification*/,
                                                     const QString& /*title*/, const QString& /*text*/,
                                                     const QString& /*icon*/, const QString& /*extra*/,
                                                     const QList<ZepaField>& /*config*/,
                                                     const ZepaPluginAction& /*action*/, const QList<ZepaArg>& /*args*/)
{
    bounceDockIcon();
}
