// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace zepa::portal {

/// Which service shows the pop-ups of this process.
enum class ServiceChoice {
    NotKnownYet,   ///< depends on what the bus still has to say
    Notifications, ///< org.freedesktop.Notifications
    Portal         ///< org.freedesktop.portal.Notification
};

/// What is known from the start.
struct ProcessFacts
{
    bool wantsPortal = false; ///< ZEPA_POPUPS=portal
    bool isSandboxed = false; ///< by Flatpak or Snap

    static ProcessFacts ofThisProcess();
};

/// What the bus says of the name org.freedesktop.Notifications, as far as it has said it.
struct NameFacts
{
    bool isOwnerKnown = false;
    bool hasOwner = false;
    std::optional<bool> isActivatable; ///< whether the bus can start an owner for us
};

/// The portal where it is wanted, and in a sandbox that keeps the notification service from us: a process outside of
/// one has no reliable application id there.
ServiceChoice choose(const ProcessFacts& process, const NameFacts& name);

} // namespace zepa::portal
