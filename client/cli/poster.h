// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/answer_token.h"
#include "client/cli/event.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace zepa {
class Client;
}

namespace zepa::cli {

/// What happened to one posting, as far as it is known right after it.
struct Report
{
    /// The methods that were called. Empty: see `isRepeat`.
    QStringList methods;
    /// Nothing was called though there are rules: the same type and title was posted a moment ago.
    bool isRepeat = false;
    /// The pop-up method was among them.
    bool asksForPopup = false;
    /// A pop-up waits for its answer.
    bool waits = false;
    /// Why nothing was shown by a pop-up; empty when a pop-up was asked for and a service is there.
    QString whyNoPopup;
};

/// Whether the answer to the event's pop-up can be learnt: a pop-up without an action has none.
enum class Answers { AsTheEventSays, Always };

/// Announces the event. When the report says that a pop-up waits, `answered` is called once: later, from the event
/// loop, or in the moment in which the client ends.
Report announce(Client& client, const Event& event, Answers answers, std::function<void(Answer)> answered);

/// Waits until what was announced is with the desktop: pop-ups sent (six seconds at most), sounds played (ten
/// seconds at most). Events are handled meanwhile. To be called before a program ends.
void finishDelivering();

} // namespace zepa::cli
