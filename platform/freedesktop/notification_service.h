// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"
#include "outbox.h"
#include "quiet_watch.h"

#include <zepa_platform/bus.h>

#include <QHash>
#include <QString>

#include <array>
#include <optional>

namespace zepa::freedesktop {

/// Pop-ups of the desktop's org.freedesktop.Notifications. Ids are the service's own.
class NotificationService final : public growl::PopupService
{
    Q_OBJECT

public:
    /// `connection` must outlive the service.
    explicit NotificationService(bus::Connection& connection = *bus::Connection::shared());

    ZepaPopupService state() override;
    ZepaDoNotDisturb doNotDisturb() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    void close(growl::PopupId id) override;

private:
    bus::Registration listen(const char* signal, void (NotificationService::*handler)(const bus::Message&));
    void onActionInvoked(const bus::Message& signal);
    void onActivationToken(const bus::Message& signal);
    void onNotificationClosed(const bus::Message& signal);

    bus::Connection& m_connection;
    bus::ServiceWatcher m_watcher;
    Outbox m_outbox;
    std::optional<QuietWatch> m_quietWatch; ///< once somebody has asked
    QHash<quint32, QString> m_tokens;       ///< activation tokens of clicks that are still to come, by pop-up
    static constexpr qsizetype tokenLimit = 100;
    const std::array<bus::Registration, 3> m_listening;
};

} // namespace zepa::freedesktop
