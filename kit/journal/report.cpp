// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/report.h"

#include "core/notification_module.h"
#include "host/chat_manager.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"
#include "kit/journal/posting.h"

#include <Growl/Growl.h>
#include <zepa_platform/popups.h>

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

constexpr char16_t popupMethod[] = u"zepa_hint_notification";
constexpr char16_t soundMethod[] = u"zepa_sound_notification_method";
constexpr char16_t chatMethod[] = u"zepa_chat_window_notification_method";

Fate fateOf(const ZepaNotificationModule& module, const Posting& posting, bool wasCalled)
{
    if (wasCalled)
        return Fate::Delivered;
    ZepaNotification* type = module.getNotifications().value(posting.type);
    if (!type)
        return Fate::UnknownType;
    return module.getRules(type).isEmpty() ? Fate::NoRule : Fate::Repeat;
}

PopupState popupOf(const Delivery& call)
{
    if (!Growl_IsRunning())
        return zepaPopupService() == ZepaPopupService::NoBus ? PopupState::NoBus : PopupState::NoService;
    return call.isRegistered ? PopupState::Asked : PopupState::NotRegistered;
}

ZepaField globalSetting(const ZepaField& field)
{
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(field);
}

QString allowedAlerts()
{
    const ZepaField alerts =
        ZepaField::comboBox({}, u"alerts"_s, {u"never"_s, u"always"_s, u"buddies_only"_s}, {}, u"buddies_only"_s, {});
    return globalSetting(alerts).getSelectedId();
}

bool isAlert(const Posting& posting)
{
    return posting.type == u"alert_received_notify"_s;
}

SoundState soundOf(const Posting& posting, const Delivery& call)
{
    if (isAlert(posting)) {
        const QString allowed = allowedAlerts();
        const bool isStranger = !posting.buddy || posting.buddy->getType() == ZepaBuddy::NotOnContactList;
        if (allowed != u"always"_s && allowed != u"buddies_only"_s)
            return SoundState::MutedForAll;
        if (allowed == u"buddies_only"_s && isStranger)
            return SoundState::MutedForStrangers;
    }
    const QString file = call.config.isEmpty() ? QString() : call.config.constFirst().getText();
    const QString path =
        QFileInfo(file).isRelative() ? ZepaSettingsManager::getInstance()->getCurrentSoundThemeDir() + file : file;
    return QFileInfo(path).isFile() ? SoundState::Asked : SoundState::NoFile;
}

ChatState chatOf(const Posting& posting)
{
    if (!posting.buddy)
        return ChatState::NoBuddy;
    return ZepaChatManager::getInstance()->getChatWindow(*posting.buddy) ? ChatState::Written : ChatState::NoWindow;
}

} // namespace

QStringList Report::methods() const
{
    QStringList ids;
    for (const Delivery& call : calls)
        ids.append(call.methodId);
    return ids;
}

Report reportOn(const ZepaNotificationModule& module, const Posting& posting, const QList<Delivery>& calls)
{
    Report report;
    report.calls = calls;
    report.fate = fateOf(module, posting, !calls.isEmpty());
    report.repeatLimit =
        globalSetting(ZepaField::spinBox({}, u"duplicated_notifications_time"_s, 300, 0, 5, {}, {})).getIntValue();
    for (const Delivery& call : calls) {
        if (call.methodId == popupMethod) {
            report.popup = popupOf(call);
            report.pictureProblem = call.pictureProblem;
        } else if (call.methodId == soundMethod) {
            report.sound = std::max(report.sound, soundOf(posting, call));
            report.alerts = isAlert(posting) ? allowedAlerts() : QString();
        } else if (call.methodId == chatMethod) {
            report.chat = chatOf(posting);
        }
    }
    return report;
}

} // namespace zepa
