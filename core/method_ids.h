// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLatin1StringView>

/// Identifiers of the built-in delivery methods: keys of the registry and names of elements in rule files.
namespace ZepaMethodId {

inline constexpr QLatin1StringView hint{"zepa_hint_notification"};
inline constexpr QLatin1StringView sound{"zepa_sound_notification_method"};
inline constexpr QLatin1StringView chatWindow{"zepa_chat_window_notification_method"};
inline constexpr QLatin1StringView taskbar{"zepa_dock_bounce_notification_method"};

} // namespace ZepaMethodId
