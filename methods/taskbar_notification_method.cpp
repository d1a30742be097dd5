// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"

#include "core/method_ids.h"
#include "core/type_ids.h"

#include <QCoreApplication>

ZepaTaskbarNotificationMethod::ZepaTaskbarNotificationMethod()
{
    setDefaultNotificationConfig(ZepaTypeId::messageReceivedBackground, {});
    setDefaultNotificationConfig(ZepaTypeId::messageReceivedInitial, {});
}

ZepaTaskbarNotificationMethod::~ZepaTaskbarNotificationMethod() = default;

QString ZepaTaskbarNotificationMethod::getId() const
{
    return ZepaMethodId::taskbar;
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
