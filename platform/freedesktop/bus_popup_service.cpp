// SPDX-License-Identifier: Apache-2.0
#include "bus_popup_service.h"

#include "freedesktop_log.h"
#include "notify_call.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zepa::freedesktop {

BusPopupService::BusPopupService(bus::Connection& connection, const char* name, int featuresAge)
    : m_connection(connection), m_watcher(connection, name), m_featuresAge(featuresAge)
{
    constexpr int lookEvery = 1000;
    m_clock.start();
    m_overdue.setInterval(lookEvery);
    connect(&m_overdue, &QTimer::timeout, this, &BusPopupService::giveUpOverdue);
    connect(&m_watcher, &bus::ServiceWatcher::ownerChanged, this, &BusPopupService::onOwnerChanged);
    connect(&m_connection, &bus::Connection::opened, this, [this] {
        m_mustAsk = !m_held.isEmpty();
        goOn();
    });
    connect(&m_connection, &bus::Connection::closed, this, &BusPopupService::onClosed);
    connect(&m_connection, &bus::Connection::roomForCalls, this, &BusPopupService::goOn);
}

ZepaPopupService BusPopupService::state()
{
    m_connection.open();
    // Asked for from the first time on, so that it is known when an owner goes.
    const std::optional<bool> isActivatable = m_watcher.isActivatable();
    if (m_connection.state() == bus::Connection::State::Closed)
        return ZepaPopupService::NoBus;
    if (!m_watcher.owner().isEmpty())
        return ZepaPopupService::There;
    if (!m_watcher.isKnown() || !isActivatable)
        return ZepaPopupService::NotKnownYet;
    return *isActivatable ? ZepaPopupService::There : ZepaPopupService::None;
}

void BusPopupService::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    m_connection.open();
    if (m_connection.state() == bus::Connection::State::Closed) {
        Q_EMIT notShown(ticket);
        return;
    }
    const qint64 time = m_clock.elapsed();
    m_mustAsk = m_mustAsk || (!m_isAsking && !(m_isKnown && time - m_askedAt < m_featuresAge));
    // Without an owner, the service may have to be started first: postings wait until its capabilities are known.
    if (!m_isKnown && m_held.isEmpty() && m_watcher.owner().isEmpty())
        m_isHolding = true;
    HeldPostings::Held held{cutToSize(posting), ticket, time};
    if (m_isHolding || !m_held.isEmpty() || !m_connection.canCall())
        hold(std::move(held));
    else
        send(std::move(held));
    if (m_mustAsk)
        ask();
}

void BusPopupService::hold(HeldPostings::Held held)
{
    m_held.add(std::move(held));
    if (!m_overdue.isActive())
        m_overdue.start();
    while (m_held.isOverfull())
        Q_EMIT notShown(m_held.takeFirst().ticket);
}

void BusPopupService::giveUpOverdue()
{
    // The bus's answer, and the service's to the question, have limits of their own.
    const bool isWaiting = m_connection.isOpen() && !(m_isHolding && m_isAsking);
    const qint64 before = m_clock.elapsed() - callLimit;
    while (isWaiting && !m_held.isEmpty() && std::max(m_held.first().since, m_lastWord) <= before)
        Q_EMIT notShown(m_held.takeFirst().ticket);
    if (m_held.isEmpty())
        m_overdue.stop();
}

void BusPopupService::onClosed()
{
    m_isKnown = false;
    forgetOwner();
    m_isHolding = true;
    m_mustAsk = false;
    while (!m_held.isEmpty())
        Q_EMIT notShown(m_held.takeFirst().ticket);
}

void BusPopupService::onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner)
{
    m_isKnown = false;
    forgetOwner();
    m_isHolding = true;
    // A question that was asked while there was no owner is this one's to answer. Otherwise the owner that was asked is
    // gone, and its error is no answer of the next one.
    if (!oldOwner.isEmpty()) {
        ++m_question;
        m_isAsking = false;
        Q_EMIT lost();
    }
    m_mustAsk = !m_isAsking && (!newOwner.isEmpty() || !m_held.isEmpty());
    goOn();
}

void BusPopupService::goOn()
{
    if (m_mustAsk)
        ask();
    while (!m_isHolding && !m_held.isEmpty() && m_connection.canCall())
        send(m_held.takeFirst());
}

void BusPopupService::ask()
{
    if (!m_connection.canCall())
        return;
    m_mustAsk = false;
    m_isAsking = true;
    m_askedAt = m_clock.elapsed();
    m_connection.call(newQuestion(), this,
                      [this, question = ++m_question](const bus::Message& reply) {
                          if (question == m_question)
                              onAnswer(reply);
                      },
                      {.limit = callLimit});
}

void BusPopupService::onAnswer(const bus::Message& reply)
{
    m_isAsking = false;
    m_mustAsk = reply.isOverLimits();
    if (!m_mustAsk) {
        m_isHolding = false;
        m_lastWord = m_clock.elapsed();
        m_isKnown = learn(reply);
        if (reply.isError())
            qCInfo(freedesktopLog) << "the service for pop-ups does not say what it can do:" << reply.errorName();
    }
    goOn();
}

void BusPopupService::send(HeldPostings::Held held)
{
    bus::Message call = newPopup(held.posting, held.ticket);
    bus::CallOptions options{.limit = callLimit, .lateLimit = lateLimit};
    if (held.posting.clickable) {
        options.late = [this, ticket = held.ticket](const bus::Message& reply) {
            if (const growl::PopupId id = shownId(reply, ticket); id != 0)
                Q_EMIT shown(ticket, id);
        };
    }
    m_connection.call(
        call, this, [this, held = std::move(held)](const bus::Message& reply) { onReply(reply, held); },
        std::move(options));
}

void BusPopupService::onReply(const bus::Message& reply, const HeldPostings::Held& held)
{
    if (const growl::PopupId id = shownId(reply, held.ticket); id != 0) {
        Q_EMIT shown(held.ticket, id);
    } else if (reply.isOverLimits()) {
        hold(held);
        goOn();
    } else {
        qCInfo(freedesktopLog) << "a pop-up was not shown:" << reply.errorName();
        Q_EMIT notShown(held.ticket);
    }
}

/// The id that the owner of the name gave a pop-up; 0 for none. Ids of an earlier owner mean nothing.
growl::PopupId BusPopupService::shownId(const bus::Message& reply, growl::Ticket ticket)
{
    // An error of this process itself has no sender, and what the bus refused did not reach the service.
    if (!reply.sender().isEmpty() && !reply.isOverLimits())
        m_lastWord = m_clock.elapsed();
    const bool isOwners = !reply.isError() && reply.sender() == QLatin1StringView(m_watcher.owner());
    return isOwners ? idIn(reply, ticket) : 0;
}

} // namespace zepa::freedesktop
