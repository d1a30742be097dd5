// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/popups.h>

#include <optional>

namespace zepa::freedesktop {

/// What desktops tell about do-not-disturb, each in a place of its own; nothing where it was not told.
struct QuietValues
{
    std::optional<bool> inhibited; ///< Plasma, Xfce: "Inhibited" of org.freedesktop.Notifications
    std::optional<bool> paused;    ///< dunst: "paused" of org.dunstproject.cmd0, at the service's own path
    std::optional<bool> dnd;       ///< swaync: of org.erikreider.swaync.cc
    /// GNOME: "show-banners" of org.gnome.desktop.notifications, through the settings portal. To be asked for on GNOME
    /// only: the portal has the value elsewhere too, where it means nothing.
    std::optional<bool> showsBanners;
};

/// On when any of them says so, NotTold when none says anything.
ZepaDoNotDisturb doNotDisturb(const QuietValues& values);

} // namespace zepa::freedesktop
