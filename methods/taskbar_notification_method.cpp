// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

ZepaTaskbarNotificationMethod::ZepaTaskbarNotificationMethod()
{
    setDefaultNotificationConfig(u"message_received_background"_s, {});
    setDefaultNotificationConfig(u"message_received_initial"_s, {});
}

ZepaTaskbarNotificationMethod::~ZepaTaskbarNotificationMethod() = default;

QString ZepaTaskbarNotificationMethod::getId() const
{
    return u"zepa_dock_bounce_notification_method"_s;
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
