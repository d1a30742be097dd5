// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "notify_image.h"

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace zepa::freedesktop {

/// One pop-up as the application wants it, in values of our own.
struct Posting
{
    QString applicationName;
    QString applicationIcon; ///< an icon theme's name, empty for none
    QString desktopEntry;    ///< the desktop file's name without ".desktop", empty for none
    QString title;
    QString text;
    NotifyImage icon; ///< null for none
    int priority = 0; ///< -2 to 2
    bool sticky = false;
    bool clickable = false;
    QString clickLabel; ///< what a service calls the click where it shows it
};

/// What a notification service says that it can do.
struct Capabilities
{
    bool bodyMarkup = false;

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
NotifyCall notifyCall(const Posting& posting, const Capabilities& capabilities);

} // namespace zepa::freedesktop
