// SPDX-License-Identifier: Apache-2.0
#include "client/rules/type_ids.h"

namespace zepa {

QStringList builtInTypes()
{
    return {
        QStringLiteral("message_received"),
        QStringLiteral("message_received_background"),
        QStringLiteral("message_received_initial"),
        QStringLiteral("message_sent"),
        QStringLiteral("alert_received_notify"),
        QStringLiteral("alert_sent_notify"),
        QStringLiteral("email_notify"),
        QStringLiteral("info_notify"),
        QStringLiteral("error_notify"),
        QStringLiteral("logged_in"),
        QStringLiteral("buddy_went_offline"),
        QStringLiteral("buddy_connected"),
        QStringLiteral("buddy_went_away"),
        QStringLiteral("buddy_changed_status"),
        QStringLiteral("typing_started_notify"),
        QStringLiteral("typing_stoped_notify"),
        QStringLiteral("conf_message_received"),
        QStringLiteral("conf_message_bg_received"),
    };
}

} // namespace zepa
