// SPDX-License-Identifier: Apache-2.0
#include "notification_service.h"

#include "service_address.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zepa::freedesktop {

NotificationService::NotificationService(bus::Connection& connection, int capabilitiesAge)
    : BusPopupService(connection, serviceName, capabilitiesAge)
    , m_listening{listen("ActionInvoked", &NotificationService::onActionInvoked),
                  listen("ActivationToken", &NotificationService::onActivationToken),
                  listen("NotificationClosed", &NotificationService::onNotificationClosed)}
{}

ZepaDoNotDisturb NotificationService::doNotDisturb()
{
    connection().open();
    if (!m_quietWatch)
        m_quietWatch.emplace(connection(), watcher());
    return m_quietWatch->state();
}

void NotificationService::close(growl::PopupId id)
{
    // To this very owner: the next one may have given the same id to a pop-up of somebody else.
    const QByteArray owner = watcher().owner();
    if (owner.isEmpty())
        return;
    bus::Message call = connection().newCall(owner.constData(), servicePath, serviceName, "CloseNotification");
    connection().send(call.append(static_cast<std::uint32_t>(id)));
}

bus::Message NotificationService::newQuestion()
{
    return connection().newCall(serviceName, servicePath, serviceName, "GetCapabilities");
}

bool NotificationService::learn(const bus::Message& reply)
{
    QStringList names;
    if (reply.isError() || !bus::MessageReader(reply).read(names))
        return false;
    m_capabilities = Capabilities::fromNames(names);
    return true;
}

void NotificationService::forgetOwner()
{
    m_capabilities = usualCapabilities;
    m_tokens.clear();
}

bus::Message NotificationService::newPopup(const growl::PopupPosting& posting, growl::Ticket /*ticket*/)
{
    bus::Message call = connection().newCall(serviceName, servicePath, serviceName, "Notify");
    appendNotify(call, posting, Sender::ofThisProgram(), m_capabilities);
    return call;
}

growl::PopupId NotificationService::idIn(const bus::Message& reply, growl::Ticket /*ticket*/) const
{
    quint32 id = 0;
    return bus::MessageReader(reply).read(id) ? id : 0;
}

bus::Registration NotificationService::listen(const char* signal,
                                              void (NotificationService::*handler)(const bus::Message&))
{
    return connection().subscribe(
        {.sender = serviceName, .path = servicePath, .interface = serviceName, .member = signal},
        [this, handler](const bus::Message& message) { (this->*handler)(message); });
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
