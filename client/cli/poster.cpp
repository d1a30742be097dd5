// SPDX-License-Identifier: Apache-2.0
#include "client/cli/poster.h"

#include "client/cli/event_wait.h"
#include "client/cli/notification_service.h"
#include "client/cli/user_action.h"
#include "client/client.h"
#include "client/services/audio/audio_service.h"
#include "core/notification_module.h"

#include <chrono>
#include <memory>
#include <utility>

namespace zepa::cli {

namespace {

const QString popupMethod = QStringLiteral("zepa_hint_notification");

QList<ZepaArg> argumentsOf(const Event& event)
{
    if (event.buddy.isNull())
        return {};
    return {ZepaArg::fromBuddy(event.person())};
}

std::function<void()> workOf(const Event& event)
{
    if (event.action.isNull())
        return {};
    return [action = event.action] { startAction(action); };
}

} // namespace

Report announce(Client& client, const Event& event, Answers answers, std::function<void(Answer)> answered)
{
    client.deliveries().take();
    std::weak_ptr<AnswerToken> kept;
    {
        ZepaPluginAction action;
        if (answers == Answers::Always || !event.action.isNull()) {
            const auto token = std::make_shared<AnswerToken>(workOf(event));
            kept = token;
            action = AnswerToken::action(token);
        }
        client.module().postNotification(event.type, event.title, event.text, event.icon, {}, action,
                                         argumentsOf(event));
    }

    Report report;
    report.methods = client.deliveries().take();
    report.asksForPopup = report.methods.contains(popupMethod);
    const bool hasRules = !client.module().getRules(client.module().getNotifications().value(event.type)).isEmpty();
    report.isRepeat = report.methods.isEmpty() && hasRules;
    if (report.isRepeat)
        report.whyNoPopup = QStringLiteral("dropped as a repeat");
    else if (!report.asksForPopup)
        report.whyNoPopup = QStringLiteral("no rule for %1 and %2").arg(event.type, popupMethod);
    else
        report.whyNoPopup = whyNoPopup();

    // Our own copy of the action is gone: who is left is the library, and it waits for an answer.
    if (const auto token = kept.lock()) {
        report.waits = true;
        token->onAnswer(std::move(answered));
    }
    return report;
}

void finishDelivering()
{
    flushPopups();
    handleEventsUntil([] { return audio::AudioService::instance().unfinished() == 0; }, std::chrono::seconds(10));
}

} // namespace zepa::cli
