// SPDX-License-Identifier: Apache-2.0
#include "outbox.h"

#include "bus_link.h"
#include "freedesktop_log.h"

#include <utility>

namespace zepa::freedesktop {

Outbox::Outbox(BusLink& link) : m_link(link)
{
    m_holdLimit.setSingleShot(true);
    m_holdLimit.setInterval(BusLink::callLimit);
    connect(&m_holdLimit, &QTimer::timeout, this, &Outbox::release);
    connect(&m_link, &BusLink::ownerChanged, this,
            [this](const QString& /*oldOwner*/, const QString& newOwner) { onOwnerChanged(newOwner); });
}

void Outbox::post(Posting posting, Ticket ticket)
{
    if (!m_capabilities && !m_asking)
        askCapabilities();
    if (!m_holding) {
        send(posting, ticket);
        return;
    }
    m_held.append({std::move(posting), ticket});
    if (!m_holdLimit.isActive())
        m_holdLimit.start();
    if (m_held.size() > heldLimit)
        Q_EMIT settled(m_held.takeFirst().ticket, 0);
}

void Outbox::onOwnerChanged(const QString& newOwner)
{
    m_capabilities.reset();
    m_holding = true;
    // The owner that was asked is gone, and its error is no answer of the next one.
    ++m_question;
    m_asking = false;
    if (!newOwner.isEmpty() || !m_held.isEmpty())
        askCapabilities();
}

void Outbox::askCapabilities()
{
    m_asking = true;
    const quint64 question = ++m_question;
    m_link.call(QStringLiteral("GetCapabilities"), {}, [this, question](const QDBusMessage& reply) {
        if (question != m_question)
            return;
        m_asking = false;
        const QVariant names = reply.arguments().value(0);
        if (reply.type() == QDBusMessage::ReplyMessage && names.metaType() == QMetaType::fromType<QStringList>())
            m_capabilities = Capabilities::fromNames(names.toStringList());
        else
            qCInfo(freedesktopLog) << "the notification service does not say what it can do:" << reply.errorName();
        release();
    });
}

void Outbox::release()
{
    // As long as there is no owner, the next posting may be the one that starts it.
    m_holding = !m_capabilities && m_link.owner().isEmpty();
    m_holdLimit.stop();
    for (const Held& held : std::exchange(m_held, {}))
        send(held.posting, held.ticket);
}

void Outbox::send(const Posting& posting, Ticket ticket)
{
    // Of a service that has not answered, markup is assumed: seen as plain text it is ugly, the other way round a text
    // from outside would be run as markup.
    const NotifyCall call = notifyCall(posting, m_capabilities.value_or(Capabilities{.bodyMarkup = true}));
    const auto reply = [this, ticket](const QDBusMessage& message) {
        const quint32 id = idIn(message);
        if (id == 0)
            qCInfo(freedesktopLog) << "a pop-up was not shown:" << message.errorName();
        Q_EMIT settled(ticket, id);
    };
    BusLink::Reply late;
    if (posting.clickable) {
        late = [this](const QDBusMessage& message) {
            if (const quint32 id = idIn(message); id != 0)
                Q_EMIT shownLate(id);
        };
    }
    m_link.call(QStringLiteral("Notify"), call.arguments(), reply, std::move(late));
}

/// The id that the owner of the name gave a pop-up; 0 for none.
quint32 Outbox::idIn(const QDBusMessage& reply)
{
    const QVariant id = reply.arguments().value(0);
    const bool shown = reply.type() == QDBusMessage::ReplyMessage && id.metaType() == QMetaType::fromType<uint>() &&
                       m_link.isOwner(reply.service());
    return shown ? id.toUInt() : 0;
}

} // namespace zepa::freedesktop
