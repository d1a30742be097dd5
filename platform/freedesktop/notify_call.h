// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <zepa_platform/bus.h>

#include <QString>
#include <QStringList>

namespace zepa::freedesktop {

/// What the desktop knows the application by.
struct Sender
{
    QString icon;         ///< an icon theme's name, empty for none
    QString desktopEntry; ///< the desktop file's name without ".desktop", empty for none

    /// Of the running program: its window icon's name, or else the desktop entry's, since desktop files and their icons
    /// share their names.
    static Sender ofThisProgram();
};

/// What a notification service says that it can do.
struct Capabilities
{
    bool bodyMarkup = false;
    bool actions = false;

    static Capabilities fromNames(const QStringList& names);
};

/// `posting` with every text that is longer than what a pop-up shows cut, so that it can wait without holding
/// megabytes.
growl::PopupPosting cutToSize(growl::PopupPosting posting);

/// Appends the arguments of Notify (susssasa{sv}i): how `posting` is said to a service that can do `capabilities`.
/// Every text comes out fit for the bus.
void appendNotify(bus::Message& call, const growl::PopupPosting& posting, const Sender& sender,
                  const Capabilities& capabilities);

} // namespace zepa::freedesktop
