// SPDX-License-Identifier: Apache-2.0
#include "methods/chat_window_notification_method.h"

#include "core/method_ids.h"
#include "core/type_ids.h"
#include "host/chat_manager.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

ZepaChatWindowNotificationMethod::ZepaChatWindowNotificationMethod()
{
    setDefaultNotificationConfig(ZepaTypeId::alertSent, {});
    setDefaultNotificationConfig(ZepaTypeId::alertReceived, {});
    setDefaultNotificationConfig(ZepaTypeId::buddyChangedStatus, {});
}

ZepaChatWindowNotificationMethod::~ZepaChatWindowNotificationMethod() = default;

QString ZepaChatWindowNotificationMethod::getId() const
{
    return ZepaMethodId::chatWindow;
}

QString ZepaChatWindowNotificationMethod::getActionName() const
{
    return QCoreApplication::translate("translation", "display information in chat window", "action description");
}

QString ZepaChatWindowNotificationMethod::getActionIcon() const
{
    return {};
}

void ZepaChatWindowNotificationMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* /*notification*/,
                                                        const QString& /*title*/, const QString& text,
                                                        const QString& /*icon*/, const QString& /*extra*/,
                                                        const QList<ZepaField>& /*config*/,
                                                        const ZepaPluginAction& /*action*/, const QList<ZepaArg>& args)
{
    if (args.isEmpty() || args.first().getType() != ZepaArg::Buddy)
        return;
    ZepaChatWindow* window = ZepaChatManager::getInstance()->getChatWindow(args.first().toBuddy());
    if (window == nullptr)
        return;
    // A picture that is built into the program has an address that the window can show.
    QString line = text;
    line.replace(u"image::/"_s, u"image:qrc:/"_s, Qt::CaseSensitive);
    window->notifyMessage(line);
}
