// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus_link.h"
#include "growl/popup_service.h"
#include "outbox.h"

#include <QHash>
#include <QString>

namespace zepa::freedesktop {

/// Pop-ups of the desktop's org.freedesktop.Notifications. Ids are the service's own.
class NotificationService final : public growl::PopupService
{
    Q_OBJECT

public:
    NotificationService();

    ZepaPopupService state() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;
    void close(growl::PopupId id) override { m_link.closeNotification(static_cast<quint32>(id)); }

private:
    void onActionInvoked(quint32 id, const QString& key);
    void onActivationToken(quint32 id, const QString& token);

    BusLink m_link;
    Outbox m_outbox;
    QHash<quint32, QString> m_tokens; ///< activation tokens of clicks that are still to come, by pop-up
    static constexpr qsizetype tokenLimit = 100;
};

} // namespace zepa::freedesktop
