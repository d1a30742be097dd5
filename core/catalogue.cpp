// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"

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
    const char* id;
    Text name;
    Text description;
};

// Identifiers and texts stand exactly as users' rule files and translations know them, odd wording included.
constexpr Entry catalogue[] = {
    {"message_received", QT_TRANSLATE_NOOP3("translation", "Message received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive any message", "notification event description")},
    {"message_received_background",
     QT_TRANSLATE_NOOP3("translation", "Message received (Background chat)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive a message in a background chat",
                        "notification event description")},
    {"message_received_initial", QT_TRANSLATE_NOOP3("translation", "Message received (Initial)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you receive an initial message", "notification event description")},
    {"message_sent", QT_TRANSLATE_NOOP3("translation", "Message sent", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When you sent message", "notification event description")},
    {"alert_received_notify", QT_TRANSLATE_NOOP3("translation", "Alert received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Alert received", "notification event description")},
    {"alert_sent_notify", QT_TRANSLATE_NOOP3("translation", "Alert sent", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Alert sent", "notification event description")},
    {"email_notify", QT_TRANSLATE_NOOP3("translation", "New email", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "New email", "notification event description")},
    {"info_notify", QT_TRANSLATE_NOOP3("translation", "Information message", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Program information", "notification event description")},
    {"error_notify", QT_TRANSLATE_NOOP3("translation", "Error message", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Program error", "notification event description")},
    {"logged_in", QT_TRANSLATE_NOOP3("translation", "Account logged in", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Account logged in", "notification event description")},
    {"buddy_went_offline", QT_TRANSLATE_NOOP3("translation", "Buddy went offline", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes presence to unavailable", "notification event description")},
    {"buddy_connected", QT_TRANSLATE_NOOP3("translation", "Buddy connected", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes presence from unavailable",
                        "notification event description")},
    {"buddy_went_away", QT_TRANSLATE_NOOP3("translation", "Buddy went away", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy becomes away", "notification event description")},
    {"buddy_changed_status", QT_TRANSLATE_NOOP3("translation", "Buddy changed status", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy changes status", "notification event description")},
    {"typing_started_notify", QT_TRANSLATE_NOOP3("translation", "Typing started", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy start typing", "notification event description")},
    {"typing_stoped_notify", QT_TRANSLATE_NOOP3("translation", "Typing stoped", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "When buddy stop typing", "notification event description")},
    {"conf_message_received", QT_TRANSLATE_NOOP3("translation", "Conference message received", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Conference message received", "notification event description")},
    {"conf_message_bg_received",
     QT_TRANSLATE_NOOP3("translation", "Conference message received (Background)", "notification event"),
     QT_TRANSLATE_NOOP3("translation", "Conference message received (Background)", "notification event description")},
};

} // namespace

void ZepaNotificationModule::init()
{
    for (const Entry& entry : catalogue) {
        const QString description = entry.description.translated();
        const QString name = entry.name.translated();
        instance->registerNotification(QString::fromLatin1(entry.id), name, u""_s, description);
    }
}
