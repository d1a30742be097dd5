// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace zepa::portal {

/// The action of a click on a pop-up, as the portal names it to us.
inline constexpr const char* clickAction = "default";

/// What a notification portal says of itself.
struct PortalFeatures
{
    std::uint32_t version = 1;
    QStringList categories; ///< that it takes; another one may be an error

    /// From the reply to GetAll of org.freedesktop.DBus.Properties; version 1 when it says nothing that can be read.
    static PortalFeatures fromReply(const bus::Message& reply);
};

/// One pop-up as the portal wants it. Every text is fit for the bus. It has no place for the name of the application,
/// which it finds out itself, nor for "sticky" and the label of a click.
struct NotificationData
{
    QString title;
    QString body;
    QByteArray icon; ///< a PNG file, empty for none
    const char* priority = "normal";
    bool isClickable = false;
    bool isSilent = true;
    QString category; ///< empty for none
    bool isTransient = false;

    /// `icon` is the posting's.
    static NotificationData fromPosting(const growl::PopupPosting& posting, QByteArray icon);

    /// The a{sv} of AddNotification, with what a portal of these features understands.
    void appendTo(bus::Message& message, const PortalFeatures& features) const;
};

} // namespace zepa::portal
