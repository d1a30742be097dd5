// SPDX-License-Identifier: Apache-2.0
#include "methods/sound_notification_method.h"

#include "core/notification.h"
#include "host/audio.h"
#include "host/buddy.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

ZepaField soundField(const QString& file)
{
    return ZepaField::soundEdit(QCoreApplication::translate("translation", "sound file", "nc"),
                                QStringLiteral("sound_file"), file, QStringLiteral(""));
}

/// What the user chose for alerts, "buddies_only" when nothing was chosen.
QString alertChoice()
{
    const QStringList ids{QStringLiteral("never"), QStringLiteral("always"), QStringLiteral("buddies_only")};
    const QStringList labels{
        QCoreApplication::translate("translation", "Mute", "turn off all"),
        QCoreApplication::translate("translation", "Notify always", "turn on all"),
        QCoreApplication::translate("translation", "Notify from buddies only", "turn on only from contacts at my list"),
    };
    const ZepaField field = ZepaField::comboBox(QStringLiteral(""), QStringLiteral("alerts"), ids, labels,
                                                QStringLiteral("buddies_only"), QStringLiteral(""));
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field).getSelectedId();
}

/// Whether an alert with these arguments may sound. The sender is taken in any case, before the setting, but its type
/// is looked at for "buddies_only" alone; an alert without arguments counts as one from outside the contact list.
bool mayAlertSound(const QList<ZepaArg>& args)
{
    const ZepaBuddy sender =
        args.isEmpty() ? ZepaBuddy(QString(), QString(), ZepaBuddy::NotOnContactList) : args.first().toBuddy();
    const QString choice = alertChoice();
    if (choice == QStringLiteral("always"))
        return true;
    if (choice != QStringLiteral("buddies_only"))
        return false;
    return sender.getType() != ZepaBuddy::NotOnContactList;
}

} // namespace

ZepaSoundNotificationMethod::ZepaSoundNotificationMethod()
{
    const ZepaField bell = soundField(QStringLiteral("bell.wav"));
    const ZepaField mail = soundField(QStringLiteral("mail.wav"));
    const ZepaField online = soundField(QStringLiteral("online.wav"));
    const ZepaField message = soundField(QStringLiteral("message.wav"));
    const ZepaField file = soundField(QStringLiteral("file.wav"));
    const ZepaField login = soundField(QStringLiteral("login.wav"));
    fields.append(bell);

    setDefaultNotificationConfig(QStringLiteral("alert_received_notify"), {bell});
    setDefaultNotificationConfig(QStringLiteral("email_notify"), {mail});
    setDefaultNotificationConfig(QStringLiteral("buddy_connected"), {online});
    setDefaultNotificationConfig(QStringLiteral("message_received"), {message});
    setDefaultNotificationConfig(QStringLiteral("message_received_initial"), {message});
    setDefaultNotificationConfig(QStringLiteral("message_received_background"), {message});
    setDefaultNotificationConfig(QStringLiteral("info_notify"), {file});
    setDefaultNotificationConfig(QStringLiteral("error_notify"), {file});
    setDefaultNotificationConfig(QStringLiteral("logged_in"), {login});
}

ZepaSoundNotificationMethod::~ZepaSoundNotificationMethod() = default;

QString ZepaSoundNotificationMethod::getId() const
{
    return QStringLiteral("zepa_sound_notification_method");
}

QString ZepaSoundNotificationMethod::getActionName() const
{
    return QCoreApplication::translate("translation", "play sound", "nc");
}

QString ZepaSoundNotificationMethod::getActionIcon() const
{
    // With a separator of its own, whether or not the directory ends in one.
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + QStringLiteral("/icons/speaker.png");
}

void ZepaSoundNotificationMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* notification,
                                                   const QString& /*title*/, const QString& /*text*/,
                                                   const QString& /*icon*/, const QString& /*extra*/,
                                                   const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                                   const QList<ZepaArg>& args)
{
    if (notification->getId() == QStringLiteral("alert_received_notify") && !mayAlertSound(args))
        return;
    if (config.isEmpty())
        return;
    // The text of the first field, whatever its identifier.
    QString path = config.first().getText();
    if (QFileInfo(path).isRelative())
        path.prepend(ZepaSettingsManager::getInstance()->getCurrentSoundThemeDir());
    ZepaAudio::getInstance()->playFile(path);
}
