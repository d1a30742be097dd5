// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/type_ids.h"

using namespace Qt::StringLiterals;

namespace zepa {

QStringList builtInTypes()
{
    return {
        u"message_received"_s,
        u"message_received_background"_s,
        u"message_received_initial"_s,
        u"message_sent"_s,
        u"alert_received_notify"_s,
        u"alert_sent_notify"_s,
        u"email_notify"_s,
        u"info_notify"_s,
        u"error_notify"_s,
        u"logged_in"_s,
        u"buddy_went_offline"_s,
        u"buddy_connected"_s,
        u"buddy_went_away"_s,
        u"buddy_changed_status"_s,
        u"typing_started_notify"_s,
        u"typing_stoped_notify"_s,
        u"conf_message_received"_s,
        u"conf_message_bg_received"_s,
    };
}

} // namespace zepa
