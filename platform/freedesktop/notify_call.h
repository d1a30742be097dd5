// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

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

/// The arguments of one call of Notify.
struct NotifyCall
{
    QString applicationName;
    quint32 replacesId = 0;
    QString applicationIcon;
    QString summary;
    QString body;
    QStringList actions;
    QVariantMap hints;
    int expireTimeout = -1; ///< in milliseconds; -1 as the service likes, 0 never

    /// In the order and with the types of the interface (susssasa{sv}i).
    QVariantList arguments() const;
};

/// How `posting` is said to a service that can do `capabilities`. Every text comes out fit for the bus.
NotifyCall notifyCall(const growl::PopupPosting& posting, const Sender& sender, const Capabilities& capabilities);

} // namespace zepa::freedesktop
