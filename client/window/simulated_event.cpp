// SPDX-License-Identifier: Apache-2.0
#include "client/window/simulated_event.h"

#include "core/type_ids.h"
#include "host/settings_manager.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("zepa", text);
}

} // namespace

const QList<SimulatedEvent>& simulatedEvents()
{
    static const QList<SimulatedEvent> events{
        {ZepaTypeId::messageReceived, QT_TRANSLATE_NOOP("zepa", "%1 writes"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "Lunch at noon?"), true},
        {ZepaTypeId::messageReceivedBackground, QT_TRANSLATE_NOOP("zepa", "%1 writes in a background chat"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "Are you still there?"), true},
        {ZepaTypeId::messageReceivedInitial, QT_TRANSLATE_NOOP("zepa", "%1 writes first"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "Good morning!"), true},
        {ZepaTypeId::messageSent, QT_TRANSLATE_NOOP("zepa", "You write to %1"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "On my way"), true},
        {ZepaTypeId::alertReceived, QT_TRANSLATE_NOOP("zepa", "%1 sends an alert"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "You got an alert"), true},
        {ZepaTypeId::alertSent, QT_TRANSLATE_NOOP("zepa", "You send %1 an alert"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "You sent an alert"), true},
        {ZepaTypeId::email, QT_TRANSLATE_NOOP("zepa", "E-mail waits"), QT_TRANSLATE_NOOP("zepa", "New e-mail"),
         QT_TRANSLATE_NOOP("zepa", "3 unread messages"), false},
        {ZepaTypeId::info, QT_TRANSLATE_NOOP("zepa", "The program has news"), QT_TRANSLATE_NOOP("zepa", "Information"),
         QT_TRANSLATE_NOOP("zepa", "A file was saved"), false},
        {ZepaTypeId::error, QT_TRANSLATE_NOOP("zepa", "The program fails"), QT_TRANSLATE_NOOP("zepa", "Error"),
         QT_TRANSLATE_NOOP("zepa", "A file could not be saved"), false},
        {ZepaTypeId::loggedIn, QT_TRANSLATE_NOOP("zepa", "Your account logs in"),
         QT_TRANSLATE_NOOP("zepa", "Logged in"), QT_TRANSLATE_NOOP("zepa", "Your account is connected"), false},
        {ZepaTypeId::buddyConnected, QT_TRANSLATE_NOOP("zepa", "%1 comes online"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "is available"), true},
        {ZepaTypeId::buddyWentAway, QT_TRANSLATE_NOOP("zepa", "%1 goes away"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "is away"), true},
        {ZepaTypeId::buddyWentOffline, QT_TRANSLATE_NOOP("zepa", "%1 goes offline"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "is not available"), true},
        {ZepaTypeId::buddyChangedStatus, QT_TRANSLATE_NOOP("zepa", "%1 changes status"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "back in ten minutes"), true},
        {ZepaTypeId::typingStarted, QT_TRANSLATE_NOOP("zepa", "%1 starts typing"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "is typing"), true},
        {ZepaTypeId::typingStopped, QT_TRANSLATE_NOOP("zepa", "%1 stops typing"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "stopped typing"), true},
        {ZepaTypeId::conferenceMessageReceived, QT_TRANSLATE_NOOP("zepa", "%1 writes in a conference"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "Hello everybody"), true},
        {ZepaTypeId::conferenceMessageReceivedBackground,
         QT_TRANSLATE_NOOP("zepa", "%1 writes in a background conference"), nullptr,
         QT_TRANSLATE_NOOP("zepa", "Who takes the minutes?"), true},
    };
    return events;
}

QString phraseOf(const SimulatedEvent& event, const ZepaBuddy& contact)
{
    const QString phrase = translated(event.phrase);
    return event.isAboutContact ? phrase.arg(contact.getName()) : phrase;
}

Posting postingOf(const SimulatedEvent& event, const ZepaBuddy& contact, const QString& text)
{
    Posting posting;
    posting.type = event.type;
    posting.title = event.title ? translated(event.title) : contact.getName();
    posting.text = text.isEmpty() ? translated(event.text) : text;
    if (event.isAboutContact)
        posting.buddy = contact;
    // The theme has a picture for each type.
    posting.icon = ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"icons/%1.png"_s.arg(posting.type);
    return posting;
}

} // namespace zepa
