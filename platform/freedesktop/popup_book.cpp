// SPDX-License-Identifier: Apache-2.0
#include "popup_book.h"

#include <algorithm>
#include <utility>

namespace zepa::freedesktop {

Ticket PopupBook::expect(ClickContext context, Time now)
{
    const Ticket ticket = ++m_lastTicket;
    if (!context.isNull())
        ++m_waitingCount;
    ++m_idlessCount;
    m_popups.emplace(ticket, Popup{.context = std::move(context), .since = now, .id = 0, .closedAt = {}});
    keepToLimits();
    return ticket;
}

void PopupBook::settle(Ticket ticket, quint32 id, Time now)
{
    if (id == 0) {
        fail(ticket);
        return;
    }
    const auto popup = m_popups.find(ticket);
    if (popup == m_popups.end() || popup->second.id != 0)
        return;
    if (const auto earlier = m_popups.find(m_ticketOfId.value(id)); earlier != m_popups.end()) {
        answer(earlier->second, Answer::Kind::TimedOut);
        erase(earlier);
    }
    popup->second.id = id;
    --m_idlessCount;
    m_ticketOfId.insert(id, ticket);
    if (popup->second.unwanted)
        m_unwanted.append(id);
    if (const EarlyAnswer* found = earlyAnswer(id)) {
        const EarlyAnswer early = *found;
        m_early.removeIf([id](const EarlyAnswer& other) { return other.id == id; });
        if (early.closedAt)
            close(popup->second, *early.closedAt);
        if (early.clicked)
            applyClick(popup, early.activationToken);
        else
            applyClose(popup, *early.closedAt);
    }
    dropEarlyAnswersIfUseless();
    advance(now);
}

void PopupBook::fail(Ticket ticket)
{
    const auto popup = m_popups.find(ticket);
    if (popup == m_popups.end())
        return;
    answer(popup->second, Answer::Kind::TimedOut);
    erase(popup);
    dropEarlyAnswersIfUseless();
}

void PopupBook::clicked(quint32 id, const QString& activationToken, Time now)
{
    if (const auto popup = m_popups.find(m_ticketOfId.value(id)); popup != m_popups.end()) {
        // As long as advance() has not ended the grace: a busy main thread is no reason to lose a click that was there.
        applyClick(popup, activationToken);
    } else if (EarlyAnswer* early = earlyAnswer(id)) {
        if (!early->closedAt || now < *early->closedAt + clickGrace) {
            early->clicked = true;
            early->activationToken = activationToken;
        }
    } else if (m_idlessCount > 0) {
        m_early.append({id, true, activationToken, std::nullopt});
        keepToLimits();
    }
}

void PopupBook::closed(quint32 id, Time now)
{
    if (const auto popup = m_popups.find(m_ticketOfId.value(id)); popup != m_popups.end()) {
        applyClose(popup, now);
    } else if (EarlyAnswer* early = earlyAnswer(id)) {
        if (!early->closedAt)
            early->closedAt = now;
    } else if (m_idlessCount > 0) {
        m_early.append({id, false, {}, now});
        keepToLimits();
    }
}

void PopupBook::forgetShown()
{
    m_early.clear();
    m_unwanted.clear();
    for (auto popup = m_popups.begin(); popup != m_popups.end();) {
        const auto current = popup++;
        if (current->second.id == 0)
            continue;
        answer(current->second, Answer::Kind::TimedOut);
        erase(current);
    }
}

void PopupBook::advance(Time now)
{
    const std::optional<Time> deadline = nextDeadline();
    const bool isDue = deadline && *deadline <= now;
    for (auto popup = m_popups.begin(); isDue && popup != m_popups.end();) {
        const auto current = popup++;
        const auto& closedAt = current->second.closedAt;
        const bool isOver = closedAt && *closedAt + clickGrace <= now;
        if (!isOver && current->second.since + backstop > now)
            continue;
        if (!isOver)
            giveUp(current);
        else
            answer(current->second, Answer::Kind::TimedOut);
        erase(current);
    }
    dropEarlyAnswersIfUseless();
}

std::optional<PopupBook::Time> PopupBook::nextDeadline() const
{
    if (m_popups.empty())
        return std::nullopt;
    // The first is the oldest. A thousand that wait cost a posting nothing, as long as none was closed just now.
    Time next = m_popups.begin()->second.since + backstop;
    if (m_closedCount > 0) {
        for (const auto& [ticket, popup] : m_popups)
            next = std::min(next, popup.closedAt ? *popup.closedAt + clickGrace : next);
    }
    return next;
}

QList<Answer> PopupBook::takeAnswers()
{
    return std::exchange(m_answers, {});
}

QList<quint32> PopupBook::takeUnwanted()
{
    return std::exchange(m_unwanted, {});
}

bool PopupBook::isShown(quint32 id) const
{
    const auto popup = m_popups.find(m_ticketOfId.value(id));
    return popup != m_popups.end() && !popup->second.closedAt;
}

/// Answers a pop-up unless it was answered before; it stays in the book.
void PopupBook::answer(Popup& popup, Answer::Kind kind, const QString& activationToken)
{
    if (popup.context.isNull())
        return;
    m_answers.append({kind, std::exchange(popup.context, {}), popup.id, activationToken});
    --m_waitingCount;
}

/// Answers a pop-up of which the service has not said that it is gone.
void PopupBook::giveUp(Popups::iterator popup)
{
    if (popup->second.context.isNull())
        return;
    popup->second.unwanted = true;
    if (popup->second.id != 0 && !popup->second.closedAt)
        m_unwanted.append(popup->second.id);
    answer(popup->second, Answer::Kind::TimedOut);
}

void PopupBook::close(Popup& popup, Time at)
{
    if (popup.closedAt)
        return;
    popup.closedAt = at;
    ++m_closedCount;
}

void PopupBook::erase(Popups::iterator popup)
{
    if (popup->second.closedAt)
        --m_closedCount;
    if (popup->second.id == 0)
        --m_idlessCount;
    else if (m_ticketOfId.value(popup->second.id) == popup->first)
        m_ticketOfId.remove(popup->second.id);
    m_popups.erase(popup);
}

void PopupBook::applyClick(Popups::iterator popup, const QString& activationToken)
{
    answer(popup->second, Answer::Kind::Clicked, activationToken);
    if (popup->second.closedAt)
        erase(popup);
}

void PopupBook::applyClose(Popups::iterator popup, Time at)
{
    if (popup->second.context.isNull())
        erase(popup);
    else
        close(popup->second, at);
}

void PopupBook::keepToLimits()
{
    const auto owed = [](const auto& entry) { return !entry.second.context.isNull(); };
    if (m_waitingCount > waitingLimit) {
        giveUp(std::find_if(m_popups.begin(), m_popups.end(), owed));
    }
    // Those that nobody waits for are as many at most, and so are answers for ids that nobody knows: a service that
    // never says what became of a pop-up, or that speaks of ids at random, must not fill the memory.
    if (static_cast<int>(m_popups.size()) - m_waitingCount > waitingLimit)
        erase(std::find_if_not(m_popups.begin(), m_popups.end(), owed));
    if (m_early.size() > waitingLimit)
        m_early.removeFirst();
}

PopupBook::EarlyAnswer* PopupBook::earlyAnswer(quint32 id)
{
    const auto found = std::find_if(m_early.begin(), m_early.end(), [id](const auto& early) { return early.id == id; });
    return found == m_early.end() ? nullptr : &*found;
}

void PopupBook::dropEarlyAnswersIfUseless()
{
    if (m_idlessCount == 0)
        m_early.clear();
}

} // namespace zepa::freedesktop
