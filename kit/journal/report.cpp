// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/report.h"

#include "core/method_ids.h"
#include "core/notification_module.h"
#include "core/repeat_rule.h"
#include "host/chat_manager.h"
#include "host/settings_manager_private.h"
#include "kit/journal/posting.h"
#include "methods/sound_rule.h"

#include <Growl/Growl.h>
#include <zepa_platform/popups.h>

#include <QFileInfo>

#include <algorithm>

namespace zepa {

namespace {

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

QString allowedAlerts()
{
    const ZepaField alerts = ZepaSoundRule::alertSetting({}, {}, {});
    return ZepaSettingsManagerPrivate::settingsMgrPrivInstance->readGlobalSetting(alerts).getSelectedId();
}

SoundState soundOf(const Posting& posting, const Delivery& call)
{
    if (ZepaSoundRule::isAlert(posting.type)) {
        const bool isStranger = !posting.buddy || posting.buddy->getType() == ZepaBuddy::NotOnContactList;
        switch (ZepaSoundRule::alertSound(allowedAlerts(), isStranger)) {
        case ZepaSoundRule::AlertSound::Muted:
            return SoundState::MutedForAll;
        case ZepaSoundRule::AlertSound::MutedForStrangers:
            return SoundState::MutedForStrangers;
        case ZepaSoundRule::AlertSound::Allowed:
            break;
        }
    }
    const QString file = call.config.isEmpty() ? QString() : call.config.constFirst().getText();
    return QFileInfo(ZepaSoundRule::pathOf(file)).isFile() ? SoundState::Asked : SoundState::NoFile;
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

Verdict Report::verdict(std::optional<Answer> answer) const
{
    switch (fate) {
    case Fate::Repeat:
        return Verdict::Repeat;
    case Fate::NoRule:
        return Verdict::NoRule;
    case Fate::UnknownType:
        return Verdict::UnknownType;
    case Fate::Delivered:
        break;
    }
    switch (popup) {
    case PopupState::NotAsked:
        return Verdict::NoPopupRule;
    case PopupState::NoBus:
        return Verdict::NoBus;
    case PopupState::NoService:
        return Verdict::NoService;
    case PopupState::NotRegistered:
        return Verdict::NotRegistered;
    case PopupState::Asked:
        break;
    }
    if (answer)
        return *answer == Answer::Clicked ? Verdict::PopupClicked : Verdict::PopupTimedOut;
    return waits ? Verdict::PopupWaiting : Verdict::PopupSent;
}

Report reportOn(const ZepaNotificationModule& module, const Posting& posting, const QList<Delivery>& calls)
{
    Report report;
    report.calls = calls;
    report.fate = fateOf(module, posting, !calls.isEmpty());
    report.repeatLimit = ZepaRepeatRule::currentSetting().getIntValue();
    for (const Delivery& call : calls) {
        if (call.methodId == ZepaMethodId::hint) {
            report.popup = popupOf(call);
            report.pictureProblem = call.pictureProblem;
        } else if (call.methodId == ZepaMethodId::sound) {
            report.sound = std::max(report.sound, soundOf(posting, call));
            report.alerts = ZepaSoundRule::isAlert(posting.type) ? allowedAlerts() : QString();
        } else if (call.methodId == ZepaMethodId::chatWindow) {
            report.chat = chatOf(posting);
        }
    }
    return report;
}

} // namespace zepa
