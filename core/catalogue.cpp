// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"

#include "core/type_ids.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

/// A source text and the comment that tells translators what it is.
struct Text
{
    const char* source;
    const char* comment;

    QString translated() const { return QCoreApplication::translate("translation", source, comment); }
};

struct Entry
{
    QLatin1StringView id;
    Text name;
    Text description;
};

// Texts stand exactly as translations know them, odd wording included.
constexpr Entry catalogue[] = {
    {ZepaTypeId::messageReceived, QT_TRANSLATE_NOOP3("translation", "Message received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive any message", "notification event description")},
    {ZepaTypeId::messageReceivedBackground,
     QT_TRANSLATE_NOOP3("translation", "Message received (Background chat)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive a message in a background chat",
                        "notification event description")},
    {ZepaTypeId::messageReceivedInitial,
     QT_TRANSLATE_NOOP3("translation", "Message received (Initial)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive an initial message", "notification event description")},
    {ZepaTypeId::messageSent, QT_TRANSLATE_NOOP3("translation", "Message sent", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you sent message", "notification event description")},
    {ZepaTypeId::alertReceived, QT_TRANSLATE_NOOP3("translation", "Alert received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Alert received", "notification event description")},
    {ZepaTypeId::alertSent, QT_TRANSLATE_NOOP3("translation", "Alert sent", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Alert sent", "notification event description")},
    {ZepaTypeId::email, QT_TRANSLATE_NOOP3("translation", "New email", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "New email", "notification event description")},
    {ZepaTypeId::info, QT_TRANSLATE_NOOP3("translation", "Information message", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Program information", "notification event description")},
    {ZepaTypeId::error, QT_TRANSLATE_NOOP3("translation", "Error message", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Program error", "notification event description")},
    {ZepaTypeId::loggedIn, QT_TRANSLATE_NOOP3("translation", "Account logged in", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Account logged in", "notification event description")},
    {ZepaTypeId::buddyWentOffline, QT_TRANSLATE_NOOP3("translation", "Buddy went offline", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes presence to unavailable", "notification event description")},
    {ZepaTypeId::buddyConnected, QT_TRANSLATE_NOOP3("translation", "Buddy connected", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes presence from unavailable",
                        "notification event description")},
    {ZepaTypeId::buddyWentAway, QT_TRANSLATE_NOOP3("translation", "Buddy went away", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy becomes away", "notification event description")},
    {ZepaTypeId::buddyChangedStatus, QT_TRANSLATE_NOOP3("translation", "Buddy changed status", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes status", "notification event description")},
    {ZepaTypeId::typingStarted, QT_TRANSLATE_NOOP3("translation", "Typing started", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy start typing", "notification event description")},
    {ZepaTypeId::typingStopped, QT_TRANSLATE_NOOP3("translation", "Typing stoped", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy stop typing", "notification event description")},
    {ZepaTypeId::conferenceMessageReceived,
     QT_TRANSLATE_NOOP3("translation", "Conference message received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Conference message received", "notification event description")},
    {ZepaTypeId::conferenceMessageReceivedBackground,
     QT_TRANSLATE_NOOP3("translation", "Conference message received (Background)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Conference message received (Background)", "notification event description")},
};

} // namespace

void ZepaNotificationModule::init()
{
    for (const Entry& entry : catalogue) {
        const QString description = entry.description.translated();
        const QString name = entry.name.translated();
        instance->registerNotification(entry.id, name, u""_s, description);
    }
}
