// SPDX-License-Identifier: Apache-2.0
#include "outbox.h"

#include "bus_link.h"
#include "bus_text.h"
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

void Outbox::post(growl::PopupPosting posting, growl::Ticket ticket)
{
    // Cut here already, so that a posting that is held does not hold megabytes.
    posting.title = busText(posting.title, summaryLimit);
    posting.text = busText(posting.text, bodyLimit);
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
        Q_EMIT notShown(m_held.takeFirst().ticket);
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

void Outbox::send(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    // Of a service that has not answered, actions are assumed, and markup: seen as plain text it is ugly, the other way
    // round a text from outside would be run as markup.
    const Capabilities usual{.bodyMarkup = true, .actions = true};
    const NotifyCall call = notifyCall(posting, Sender::ofThisProgram(), m_capabilities.value_or(usual));
    const auto reply = [this, ticket](const QDBusMessage& message) {
        if (const quint32 id = idIn(message); id != 0) {
            Q_EMIT shown(ticket, id);
            return;
        }
        qCInfo(freedesktopLog) << "a pop-up was not shown:" << message.errorName();
        Q_EMIT notShown(ticket);
    };
    BusLink::Reply late;
    if (posting.clickable) {
        late = [this, ticket](const QDBusMessage& message) {
            if (const quint32 id = idIn(message); id != 0)
                Q_EMIT shown(ticket, id);
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
