// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/popup_kind.h"

#include "core/notification.h"

#include <zepa_platform/popups.h>

#include <algorithm>
#include <iterator>

namespace zepa {

namespace {

struct Kind
{
    const char* type;
    const char* category;
    bool isTransient = false; ///< who came, went or typed a while ago is of no interest
};

constexpr Kind kinds[] = {
    {"message_received", "im.received"},
    {"message_received_background", "im.received"},
    {"message_received_initial", "im.received"},
    {"conf_message_received", "im.received"},
    {"conf_message_bg_received", "im.received"},
    {"alert_received_notify", "im.received"},
    {"message_sent", "im"},
    {"alert_sent_notify", "im"},
    {"typing_started_notify", "im", true},
    {"typing_stoped_notify", "im", true},
    {"email_notify", "email.arrived"},
    {"error_notify", "im.error"},
    {"buddy_connected", "presence.online", true},
    {"buddy_went_offline", "presence.offline", true},
    {"buddy_went_away", "presence", true},
    {"buddy_changed_status", "presence", true},
};

} // namespace

void setPopupKind(const ZepaNotification& type)
{
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&type](const Kind& known) { return type.getId() == QLatin1String(known.type); });
    // Pop-ups are known to the platform by the types' display names.
    if (kind != std::end(kinds))
        zepaSetPopupKind(type.getName(), {QString::fromLatin1(kind->category), kind->isTransient});
}

} // namespace zepa
