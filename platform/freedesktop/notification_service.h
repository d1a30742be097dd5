// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus_popup_service.h"
#include "notify_call.h"
#include "quiet_watch.h"

#include <QHash>
#include <QString>

#include <array>
#include <optional>

namespace zepa::freedesktop {

/// Pop-ups of the desktop's org.freedesktop.Notifications. Ids are the service's own.
class NotificationService final : public BusPopupService
{
    Q_OBJECT

public:
    /// What a service can do changes with its settings: it is asked again beside a posting after this time, in
    /// milliseconds.
    static constexpr int usualCapabilitiesAge = 60000;

    /// `connection` must outlive the service.
    explicit NotificationService(bus::Connection& connection, int capabilitiesAge = usualCapabilitiesAge);

    ZepaDoNotDisturb doNotDisturb() override;
    void close(growl::PopupId id) override;

private:
    bus::Message newQuestion() override;
    bool learn(const bus::Message& reply) override;
    void forgetOwner() override;
    bus::Message newPopup(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    growl::PopupId idIn(const bus::Message& reply, growl::Ticket ticket) const override;

    bus::Registration listen(const char* signal, void (NotificationService::*handler)(const bus::Message&));
    void onActionInvoked(const bus::Message& signal);
    void onActivationToken(const bus::Message& signal);
    void onNotificationClosed(const bus::Message& signal);

    /// Of a service that has not answered, actions are assumed, and markup: seen as plain text it is ugly, the other
    /// way round a text from outside would be run as markup.
    static constexpr Capabilities usualCapabilities{.bodyMarkup = true, .actions = true};

    Capabilities m_capabilities = usualCapabilities;
    std::optional<QuietWatch> m_quietWatch; ///< once somebody has asked
    QHash<quint32, QString> m_tokens;       ///< activation tokens of clicks that are still to come, by pop-up
    static constexpr qsizetype tokenLimit = 100;
    const std::array<bus::Registration, 3> m_listening;
};

} // namespace zepa::freedesktop
