// SPDX-License-Identifier: Apache-2.0
#include "notification_service.h"

namespace zepa::freedesktop {

NotificationService::NotificationService() : m_outbox(m_link)
{
    connect(&m_outbox, &Outbox::shown, this, &NotificationService::shown);
    connect(&m_outbox, &Outbox::notShown, this, &NotificationService::notShown);
    connect(&m_link, &BusLink::notificationClosed, this, &NotificationService::closed);
    connect(&m_link, &BusLink::actionInvoked, this, &NotificationService::onActionInvoked);
    connect(&m_link, &BusLink::activationToken, this, &NotificationService::onActivationToken);
    connect(&m_link, &BusLink::ownerChanged, this, [this](const QString& oldOwner) {
        m_tokens.clear();
        if (!oldOwner.isEmpty())
            Q_EMIT lost();
    });
}

ZepaPopupService NotificationService::state()
{
    return m_link.open() ? m_link.service() : ZepaPopupService::NoBus;
}

void NotificationService::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    m_link.open();
    m_outbox.post(posting, ticket);
}

void NotificationService::onActionInvoked(quint32 id, const QString& key)
{
    // The only action that is ever offered. Services that invoke it on a pop-up that offered none meet one that wants
    // no answer.
    if (key == QStringLiteral("default"))
        Q_EMIT clicked(id, m_tokens.take(id));
}

void NotificationService::onActivationToken(quint32 id, const QString& token)
{
    // One for each click; a service that sends them without clicks gains nothing.
    if (m_tokens.size() >= tokenLimit)
        m_tokens.clear();
    m_tokens.insert(id, token);
}

} // namespace zepa::freedesktop
