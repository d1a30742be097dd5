// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"
#include "held_postings.h"
#include "icon_bytes.h"
#include "notification_data.h"
#include "notification_ids.h"

#include <zepa_platform/bus.h>

#include <QPointer>

#include <optional>

namespace zepa::portal {

/// Pop-ups of org.freedesktop.portal.Notification, through which programs in a sandbox show theirs. Ids are the
/// tickets.
///
/// The portal never says that a pop-up is gone: closed() is never emitted.
class PortalService final : public growl::PopupService
{
    Q_OBJECT

public:
    /// Null for no bus.
    explicit PortalService(bus::Connection* connection);

    ZepaPopupService state() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    void close(growl::PopupId id) override;

private:
    bus::Message newCall(const char* interface, const char* member);
    void onOwnerChanged(const QByteArray& oldOwner);
    void forgetFeatures();
    void askFeatures();
    void sendHeld();
    void send(growl::Ticket ticket, const NotificationData& data);
    bool isShownBy(const bus::Message& reply) const;
    void onActionInvoked(const bus::Message& signal);

    const QPointer<bus::Connection> m_connection;
    std::optional<bus::ServiceWatcher> m_watcher;
    bus::Registration m_clicks;
    NotificationIds m_ids;
    IconBytes m_icons;
    HeldPostings<NotificationData> m_held;
    std::optional<PortalFeatures> m_features; ///< of the present owner; nothing is sent before they are known
    bool m_isAsking = false;
    quint64 m_question = 0; ///< counts them: only the last one's answer is about this owner
};

} // namespace zepa::portal
