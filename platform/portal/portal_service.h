// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "freedesktop/bus_popup_service.h"
#include "icon_bytes.h"
#include "notification_data.h"
#include "notification_ids.h"

namespace zepa::portal {

/// Pop-ups of org.freedesktop.portal.Notification, through which programs in a sandbox show theirs. Ids are the
/// tickets.
///
/// The portal never says that a pop-up is gone: closed() is never emitted.
class PortalService final : public freedesktop::BusPopupService
{
    Q_OBJECT

public:
    /// `connection` must outlive the service.
    explicit PortalService(bus::Connection& connection);

    void close(growl::PopupId id) override;

private:
    bus::Message newQuestion() override;
    bool learn(const bus::Message& reply) override;
    void forgetOwner() override { m_features = {}; }
    bus::Message newPopup(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    growl::PopupId idIn(const bus::Message& /*reply*/, growl::Ticket ticket) const override { return ticket; }

    bus::Message newCall(const char* interface, const char* member);
    void onActionInvoked(const bus::Message& signal);

    const bus::Registration m_clicks;
    const NotificationIds m_ids;
    IconBytes m_icons;
    PortalFeatures m_features; ///< of the present owner
};

} // namespace zepa::portal
