// SPDX-License-Identifier: Apache-2.0
#include "client/posting/announce.h"

#include "client/client.h"
#include "client/journal/journal.h"
#include "client/posting/event_wait.h"
#include "client/posting/notification_service.h"
#include "client/services/audio/audio_service.h"
#include "core/notification.h"
#include "core/notification_module.h"

#include <QPointer>

#include <chrono>
#include <memory>
#include <utility>

namespace zepa {

Report announce(Client& client, const Posting& posting, std::function<void(Answer)> answered)
{
    const DeliveryLog::Recording recording(client.deliveries());
    std::weak_ptr<AnswerToken> kept;
    {
        ZepaPluginAction action;
        if (posting.wantsAnswer || posting.action) {
            const auto token = std::make_shared<AnswerToken>(posting.action);
            kept = token;
            action = AnswerToken::action(token);
        }
        QList<ZepaArg> arguments;
        if (posting.buddy)
            arguments.append(ZepaArg::fromBuddy(*posting.buddy));
        client.module().postNotification(posting.type, posting.title, posting.text, posting.icon, {}, action,
                                         arguments);
    }

    Report report = reportOn(client, posting, recording.deliveries());
    // Our own copy of the action is gone: who is left is the library, and it waits for an answer.
    const auto token = kept.lock();
    report.waits = token != nullptr;
    const ZepaNotification* type = client.module().getNotifications().value(posting.type);
    const int number = client.journal().add(posting, type ? type->getName() : posting.type, report);
    if (token) {
        token->onAnswer(
            [journal = QPointer<Journal>(&client.journal()), number, done = std::move(answered)](Answer answer) {
                if (journal)
                    journal->answered(number, answer);
                if (done)
                    done(answer);
            });
    }
    return report;
}

void finishDelivering(const Client& client)
{
    flushPopups();
    handleEventsUntil([] { return audio::AudioService::instance().unfinished() == 0; }, std::chrono::seconds(10));
    handleEventsUntil([&client] { return client.outsideMethods().unspoken() == 0; }, std::chrono::seconds(30));
}

} // namespace zepa
