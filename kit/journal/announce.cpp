// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/announce.h"

#include "core/notification.h"
#include "core/notification_module.h"
#include "kit/journal/delivery_log.h"
#include "kit/journal/journal.h"

#include <QPointer>

#include <memory>
#include <utility>

namespace zepa {

Report announce(const Recorder& recorder, const Posting& posting, std::function<void(Answer)> answered)
{
    const DeliveryLog::Recording recording(recorder.deliveries);
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
        recorder.module.postNotification(posting.type, posting.title, posting.text, posting.icon, {}, action,
                                         arguments);
    }

    Report report = reportOn(recorder.module, posting, recording.deliveries());
    // Our own copy of the action is gone: who is left is the library, and it waits for an answer.
    const auto token = kept.lock();
    report.waits = token != nullptr;
    const ZepaNotification* type = recorder.module.getNotifications().value(posting.type);
    const int number = recorder.journal.add(posting, type ? type->getName() : posting.type, report);
    if (token) {
        token->onAnswer(
            [journal = QPointer<Journal>(&recorder.journal), number, done = std::move(answered)](Answer answer) {
                if (journal)
                    journal->answered(number, answer);
                if (done)
                    done(answer);
            });
    }
    return report;
}

} // namespace zepa
