// SPDX-License-Identifier: Apache-2.0
#include "methods/sound_notification_method.h"

#include "core/method_ids.h"
#include "core/notification.h"
#include "core/type_ids.h"
#include "host/audio.h"
#include "host/buddy.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"
#include "methods/sound_rule.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

ZepaField soundField(const QString& file)
{
    return ZepaField::soundEdit(QCoreApplication::translate("translation", "sound file", "nc"), u"sound_file"_s, file,
                                u""_s);
}

/// What the user chose for alerts, "buddies_only" when nothing was chosen.
QString alertChoice()
{
    const QStringList labels{
        QCoreApplication::translate("translation", "Mute", "turn off all"),
        QCoreApplication::translate("translation", "Notify always", "turn on all"),
        QCoreApplication::translate("translation", "Notify from buddies only", "turn on only from contacts at my list"),
    };
    const ZepaField field = ZepaSoundRule::alertSetting(u""_s, labels, u""_s);
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field).getSelectedId();
}

/// Whether an alert with these arguments may sound. The sender is taken in any case, before the setting; an alert
/// without arguments counts as one from outside the contact list.
bool mayAlertSound(const QList<ZepaArg>& args)
{
    const ZepaBuddy sender =
        args.isEmpty() ? ZepaBuddy(QString(), QString(), ZepaBuddy::NotOnContactList) : args.first().toBuddy();
    const QString choice = alertChoice();
    return ZepaSoundRule::alertSound(choice, sender.getType() == ZepaBuddy::NotOnContactList) ==
           ZepaSoundRule::AlertSound::Allowed;
}

} // namespace

ZepaSoundNotificationMethod::ZepaSoundNotificationMethod()
{
    const ZepaField bell = soundField(u"bell.wav"_s);
    const ZepaField mail = soundField(u"mail.wav"_s);
    const ZepaField online = soundField(u"online.wav"_s);
    const ZepaField message = soundField(u"message.wav"_s);
    const ZepaField file = soundField(u"file.wav"_s);
    const ZepaField login = soundField(u"login.wav"_s);
    fields.append(bell);

    setDefaultNotificationConfig(ZepaTypeId::alertReceived, {bell});
    setDefaultNotificationConfig(ZepaTypeId::email, {mail});
    setDefaultNotificationConfig(ZepaTypeId::buddyConnected, {online});
    setDefaultNotificationConfig(ZepaTypeId::messageReceived, {message});
    setDefaultNotificationConfig(ZepaTypeId::messageReceivedInitial, {message});
    setDefaultNotificationConfig(ZepaTypeId::messageReceivedBackground, {message});
    setDefaultNotificationConfig(ZepaTypeId::info, {file});
    setDefaultNotificationConfig(ZepaTypeId::error, {file});
    setDefaultNotificationConfig(ZepaTypeId::loggedIn, {login});
}

ZepaSoundNotificationMethod::~ZepaSoundNotificationMethod() = default;

QString ZepaSoundNotificationMethod::getId() const
{
    return ZepaMethodId::sound;
}

QString ZepaSoundNotificationMethod::getActionName() const
{
    return QCoreApplication::translate("translation", "play sound", "nc");
}

QString ZepaSoundNotificationMethod::getActionIcon() const
{
    // With a separator of its own, whether or not the directory ends in one.
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"/icons/speaker.png"_s;
}

void ZepaSoundNotificationMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* notification,
                                                   const QString& /*title*/, const QString& /*text*/,
                                                   const QString& /*icon*/, const QString& /*extra*/,
                                                   const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                                   const QList<ZepaArg>& args)
{
    if (ZepaSoundRule::isAlert(notification->getId()) && !mayAlertSound(args))
        return;
    if (config.isEmpty())
        return;
    // The text of the first field, whatever its identifier.
    ZepaAudio::getInstance()->playFile(ZepaSoundRule::pathOf(config.first().getText()));
}
