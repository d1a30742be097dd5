// SPDX-License-Identifier: Apache-2.0
#include "methods/sound_notification_method.h"

#include "core/notification.h"
#include "host/audio.h"
#include "host/buddy.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"

#include <QCoreApplication>
#include <QFileInfo>

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
    const QStringList ids{u"never"_s, u"always"_s, u"buddies_only"_s};
    const QStringList labels{
        QCoreApplication::translate("translation", "Mute", "turn off all"),
        QCoreApplication::translate("translation", "Notify always", "turn on all"),
        QCoreApplication::translate("translation", "Notify from buddies only", "turn on only from contacts at my list"),
    };
    const ZepaField field = ZepaField::comboBox(u""_s, u"alerts"_s, ids, labels, u"buddies_only"_s, u""_s);
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field).getSelectedId();
}

/// Whether an alert with these arguments may sound. The sender is taken in any case, before the setting, but its type
/// is looked at for "buddies_only" alone; an alert without arguments counts as one from outside the contact list.
bool mayAlertSound(const QList<ZepaArg>& args)
{
    const ZepaBuddy sender =
        args.isEmpty() ? ZepaBuddy(QString(), QString(), ZepaBuddy::NotOnContactList) : args.first().toBuddy();
    const QString choice = alertChoice();
    if (choice == u"always"_s)
        return true;
    if (choice != u"buddies_only"_s)
        return false;
    return sender.getType() != ZepaBuddy::NotOnContactList;
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

    setDefaultNotificationConfig(u"alert_received_notify"_s, {bell});
    setDefaultNotificationConfig(u"email_notify"_s, {mail});
    setDefaultNotificationConfig(u"buddy_connected"_s, {online});
    setDefaultNotificationConfig(u"message_received"_s, {message});
    setDefaultNotificationConfig(u"message_received_initial"_s, {message});
    setDefaultNotificationConfig(u"message_received_background"_s, {message});
    setDefaultNotificationConfig(u"info_notify"_s, {file});
    setDefaultNotificationConfig(u"error_notify"_s, {file});
    setDefaultNotificationConfig(u"logged_in"_s, {login});
}

ZepaSoundNotificationMethod::~ZepaSoundNotificationMethod() = default;

QString ZepaSoundNotificationMethod::getId() const
{
    return u"zepa_sound_notification_method"_s;
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
    if (notification->getId() == u"alert_received_notify"_s && !mayAlertSound(args))
        return;
    if (config.isEmpty())
        return;
    // The text of the first field, whatever its identifier.
    QString path = config.first().getText();
    if (QFileInfo(path).isRelative())
        path.prepend(ZepaSettingsManager::getInstance()->getCurrentSoundThemeDir());
    ZepaAudio::getInstance()->playFile(path);
}
