// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/buddy.h"
#include "kit/journal/posting.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>

namespace zepa {

/// Something that can happen to a client, to be played as if it did.
struct SimulatedEvent
{
    QLatin1StringView type;
    const char* phrase; ///< "%1 writes", where %1 is the contact
    const char* title;  ///< null: the contact's name
    const char* text;   ///< what is posted when the user gives no text
    bool isAboutContact;
};

/// One for each built-in notification type.
const QList<SimulatedEvent>& simulatedEvents();

/// The phrase in the user's language: "Ann writes".
QString phraseOf(const SimulatedEvent& event, const ZepaBuddy& contact);

/// The event as a client announces it, without an action. An empty `text` stands for the event's own.
Posting postingOf(const SimulatedEvent& event, const ZepaBuddy& contact, const QString& text);

} // namespace zepa
