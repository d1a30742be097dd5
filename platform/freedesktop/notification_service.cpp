// SPDX-License-Identifier: Apache-2.0
#include "notification_service.h"

#include "service_address.h"

using namespace Qt::StringLiterals;

namespace zepa::freedesktop {

NotificationService::NotificationService(bus::Connection& connection)
    : m_connection(connection)
    , m_watcher(connection, serviceName)
    , m_outbox(connection, m_watcher)
    , m_listening{listen("ActionInvoked", &NotificationService::onActionInvoked),
                  listen("ActivationToken", &NotificationService::onActivationToken),
                  listen("NotificationClosed", &NotificationService::onNotificationClosed)}
{
    connect(&m_outbox, &Outbox::shown, this, &NotificationService::shown);
    connect(&m_outbox, &Outbox::notShown, this, &NotificationService::notShown);
    connect(&m_watcher, &bus::ServiceWatcher::ownerChanged, this, [this](const QByteArray& oldOwner) {
        m_tokens.clear();
        if (!oldOwner.isEmpty())
            Q_EMIT lost();
    });
}

ZepaPopupService NotificationService::state()
{
    m_connection.open();
    // Asked for from the first time on, so that it is known when an owner goes.
    const std::optional<bool> isActivatable = m_watcher.isActivatable();
    if (!m_connection.isOpen()) {
        const bool isOpening = m_connection.state() == bus::Connection::State::Opening;
        return isOpening ? ZepaPopupService::NotKnownYet : ZepaPopupService::NoBus;
    }
    if (!m_watcher.owner().isEmpty())
        return ZepaPopupService::There;
    if (!m_watcher.isKnown() || !isActivatable)
        return ZepaPopupService::NotKnownYet;
    return *isActivatable ? ZepaPopupService::There : ZepaPopupService::None;
}

ZepaDoNotDisturb NotificationService::doNotDisturb()
{
    m_connection.open();
    if (!m_quietWatch)
        m_quietWatch.emplace(m_connection, m_watcher);
    return m_quietWatch->state();
}

void NotificationService::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    m_connection.open();
    m_outbox.post(posting, ticket);
}

void NotificationService::close(growl::PopupId id)
{
    // To this very owner: the next one may have given the same id to a pop-up of somebody else.
    const QByteArray owner = m_watcher.owner();
    if (owner.isEmpty())
        return;
    bus::Message call = m_connection.newCall(owner.constData(), servicePath, serviceName, "CloseNotification");
    m_connection.send(call.append(static_cast<std::uint32_t>(id)));
}

bus::Registration NotificationService::listen(const char* signal,
                                              void (NotificationService::*handler)(const bus::Message&))
{
    bus::SignalMatch match;
    match.sender = serviceName;
    match.path = servicePath;
    match.interface = serviceName;
    match.member = signal;
    return m_connection.subscribe(match, [this, handler](const bus::Message& message) { (this->*handler)(message); });
}

void NotificationService::onActionInvoked(const bus::Message& signal)
{
    quint32 id = 0;
    QString key;
    // The only action that is ever offered. Services that invoke it on a pop-up that offered none meet one that wants
    // no answer.
    if (bus::MessageReader(signal).read(id, key) && key == u"default"_s)
        Q_EMIT clicked(id, m_tokens.take(id));
}

void NotificationService::onActivationToken(const bus::Message& signal)
{
    quint32 id = 0;
    QString token;
    if (!bus::MessageReader(signal).read(id, token))
        return;
    // One for each click; a service that sends them without clicks gains nothing.
    if (m_tokens.size() >= tokenLimit)
        m_tokens.clear();
    m_tokens.insert(id, token);
}

void NotificationService::onNotificationClosed(const bus::Message& signal)
{
    quint32 id = 0;
    quint32 reason = 0;
    if (bus::MessageReader(signal).read(id, reason))
        Q_EMIT closed(id);
}

} // namespace zepa::freedesktop
