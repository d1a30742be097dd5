// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLatin1StringView>

/// Identifiers of the notification types that every module has: keys of the registry and names of rule files. Their
/// spelling is fixed, odd ones included.
namespace ZepaTypeId {

inline constexpr QLatin1StringView messageReceived{"message_received"};
inline constexpr QLatin1StringView messageReceivedBackground{"message_received_background"};
inline constexpr QLatin1StringView messageReceivedInitial{"message_received_initial"};
inline constexpr QLatin1StringView messageSent{"message_sent"};
inline constexpr QLatin1StringView alertReceived{"alert_received_notify"};
inline constexpr QLatin1StringView alertSent{"alert_sent_notify"};
inline constexpr QLatin1StringView email{"email_notify"};
inline constexpr QLatin1StringView info{"info_notify"};
inline constexpr QLatin1StringView error{"error_notify"};
inline constexpr QLatin1StringView loggedIn{"logged_in"};
inline constexpr QLatin1StringView buddyWentOffline{"buddy_went_offline"};
inline constexpr QLatin1StringView buddyConnected{"buddy_connected"};
inline constexpr QLatin1StringView buddyWentAway{"buddy_went_away"};
inline constexpr QLatin1StringView buddyChangedStatus{"buddy_changed_status"};
inline constexpr QLatin1StringView typingStarted{"typing_started_notify"};
inline constexpr QLatin1StringView typingStopped{"typing_stoped_notify"};
inline constexpr QLatin1StringView conferenceMessageReceived{"conf_message_received"};
inline constexpr QLatin1StringView conferenceMessageReceivedBackground{"conf_message_bg_received"};

/// All of them, in the order of the catalogue.
inline constexpr QLatin1StringView all[] = {
    messageReceived,
    messageReceivedBackground,
    messageReceivedInitial,
    messageSent,
    alertReceived,
    alertSent,
    email,
    info,
    error,
    loggedIn,
    buddyWentOffline,
    buddyConnected,
    buddyWentAway,
    buddyChangedStatus,
    typingStarted,
    typingStopped,
    conferenceMessageReceived,
    conferenceMessageReceivedBackground,
};

} // namespace ZepaTypeId
