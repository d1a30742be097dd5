// SPDX-License-Identifier: Apache-2.0
#include "outbox.h"

#include "freedesktop_log.h"
#include "service_address.h"

#include <algorithm>
#include <utility>

namespace zepa::freedesktop {

Outbox::Outbox(bus::Connection& connection, const bus::ServiceWatcher& watcher, int capabilitiesAge)
    : m_connection(connection), m_watcher(watcher), m_capabilitiesAge(capabilitiesAge)
{
    constexpr int lookEvery = 1000;
    m_clock.start();
    m_overdue.setInterval(lookEvery);
    connect(&m_overdue, &QTimer::timeout, this, &Outbox::giveUpOverdue);
    connect(&m_watcher, &bus::ServiceWatcher::ownerChanged, this, &Outbox::onOwnerChanged);
    connect(&m_connection, &bus::Connection::opened, this, [this] {
        m_mustAsk = !m_held.isEmpty();
        goOn();
    });
    connect(&m_connection, &bus::Connection::closed, this, &Outbox::onClosed);
    connect(&m_connection, &bus::Connection::roomForCalls, this, &Outbox::goOn);
}

void Outbox::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    if (m_connection.state() == bus::Connection::State::Closed) {
        Q_EMIT notShown(ticket);
        return;
    }
    const bool isKnown = m_capabilities && m_clock.elapsed() - m_askedAt < m_capabilitiesAge;
    m_mustAsk = m_mustAsk || (!m_isAsking && !isKnown);
    // As long as there is no owner, this may be the posting that starts it.
    if (!m_capabilities && m_held.isEmpty() && m_watcher.owner().isEmpty())
        m_isHolding = true;
    if (m_isHolding || !m_held.isEmpty() || !m_connection.canCall())
        hold(posting, ticket);
    else
        send(posting, ticket);
    if (m_mustAsk)
        askCapabilities();
}

void Outbox::hold(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    m_held.append({cutToSize(posting), ticket, m_clock.elapsed()});
    if (!m_overdue.isActive())
        m_overdue.start();
    while (m_held.isOverfull())
        Q_EMIT notShown(m_held.takeFirst().ticket);
}

void Outbox::giveUpOverdue()
{
    // The bus's answer, and the service's to the question, have limits of their own.
    const bool isWaiting = m_connection.isOpen() && !(m_isHolding && m_isAsking);
    const qint64 before = m_clock.elapsed() - callLimit;
    while (isWaiting && !m_held.isEmpty() && std::max(m_held.first().since, m_lastWord) <= before)
        Q_EMIT notShown(m_held.takeFirst().ticket);
    if (m_held.isEmpty())
        m_overdue.stop();
}

void Outbox::onClosed()
{
    m_capabilities.reset();
    m_isHolding = true;
    m_mustAsk = false;
    while (!m_held.isEmpty())
        Q_EMIT notShown(m_held.takeFirst().ticket);
}

void Outbox::onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner)
{
    m_capabilities.reset();
    m_isHolding = true;
    // A question that was asked while there was no owner is this one's to answer. Otherwise the owner that was asked is
    // gone, and its error is no answer of the next one.
    if (!oldOwner.isEmpty()) {
        ++m_question;
        m_isAsking = false;
    }
    m_mustAsk = !m_isAsking && (!newOwner.isEmpty() || !m_held.isEmpty());
    goOn();
}

void Outbox::goOn()
{
    if (m_mustAsk)
        askCapabilities();
    while (!m_isHolding && !m_held.isEmpty() && m_connection.canCall()) {
        const HeldPostings::Held held = m_held.takeFirst();
        send(held.posting, held.ticket);
    }
}

void Outbox::askCapabilities()
{
    if (!m_connection.canCall())
        return;
    m_mustAsk = false;
    m_isAsking = true;
    m_askedAt = m_clock.elapsed();
    m_connection.call(m_connection.newCall(serviceName, servicePath, serviceName, "GetCapabilities"), this,
                      [this, question = ++m_question](const bus::Message& reply) {
                          if (question == m_question)
                              onCapabilities(reply);
                      },
                      {.limit = callLimit});
}

void Outbox::onCapabilities(const bus::Message& reply)
{
    QStringList names;
    if (!reply.isError() && bus::MessageReader(reply).read(names))
        m_capabilities = Capabilities::fromNames(names);
    else
        qCInfo(freedesktopLog) << "the notification service does not say what it can do:" << reply.errorName();
    m_isAsking = false;
    m_isHolding = false;
    m_lastWord = m_clock.elapsed();
    goOn();
}

void Outbox::send(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    // Of a service that has not answered, actions are assumed, and markup: seen as plain text it is ugly, the other way
    // round a text from outside would be run as markup.
    constexpr Capabilities usual{.bodyMarkup = true, .actions = true};
    bus::Message call = m_connection.newCall(serviceName, servicePath, serviceName, "Notify");
    appendNotify(call, posting, Sender::ofThisProgram(), m_capabilities.value_or(usual));
    bus::CallOptions options{.limit = callLimit, .lateLimit = lateLimit};
    if (posting.clickable) {
        options.late = [this, ticket](const bus::Message& reply) {
            if (const quint32 id = idIn(reply); id != 0)
                Q_EMIT shown(ticket, id);
        };
    }
    m_connection.call(
        call, this, [this, ticket](const bus::Message& reply) { onReply(reply, ticket); }, std::move(options));
}

void Outbox::onReply(const bus::Message& reply, growl::Ticket ticket)
{
    if (const quint32 id = idIn(reply); id != 0) {
        Q_EMIT shown(ticket, id);
        return;
    }
    qCInfo(freedesktopLog) << "a pop-up was not shown:" << reply.errorName();
    Q_EMIT notShown(ticket);
}

/// The id that the owner of the name gave a pop-up; 0 for none. Ids of an earlier owner mean nothing.
quint32 Outbox::idIn(const bus::Message& reply)
{
    // An error of this process itself has no sender.
    if (!reply.sender().isEmpty())
        m_lastWord = m_clock.elapsed();
    quint32 id = 0;
    const bool isShown = !reply.isError() && reply.sender() == QLatin1StringView(m_watcher.owner());
    return isShown && bus::MessageReader(reply).read(id) ? id : 0;
}

} // namespace zepa::freedesktop
