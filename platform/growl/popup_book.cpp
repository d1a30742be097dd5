// SPDX-License-Identifier: Apache-2.0
#include "popup_book.h"

#include <algorithm>
#include <utility>

namespace zepa::growl {

Ticket PopupBook::expect(ClickContext context, size_t group, Time now)
{
    const Ticket ticket = ++m_lastTicket;
    if (!context.isNull())
        ++m_waitingCount;
    ++m_idlessCount;
    m_popups.emplace(ticket, Popup{.context = std::move(context), .group = group, .since = now});
    keepToLimits();
    return ticket;
}

bool PopupBook::settle(Ticket ticket, PopupId id)
{
    const auto popup = m_popups.find(ticket);
    if (popup == m_popups.end() || popup->second.id != 0)
        return false;
    if (const auto earlier = m_popups.find(m_ticketOfId.value(id)); earlier != m_popups.end()) {
        answer(earlier->second);
        erase(earlier);
    }
    popup->second.id = id;
    --m_idlessCount;
    m_ticketOfId.insert(id, ticket);
    if (popup->second.unwanted)
        m_unwanted.append(id);
    const auto early =
        std::find_if(m_early.begin(), m_early.end(), [id](const EarlyAnswer& other) { return other.id == id; });
    if (early != m_early.end()) {
        const EarlyAnswer said = *early;
        m_early.erase(early);
        if (said.clickToken)
            clicked(id, *said.clickToken);
        if (said.isClosed)
            closed(id);
    }
    dropEarlyAnswersIfUseless();
    return true;
}

void PopupBook::fail(Ticket ticket)
{
    const auto popup = m_popups.find(ticket);
    if (popup == m_popups.end())
        return;
    answer(popup->second);
    erase(popup);
    dropEarlyAnswersIfUseless();
}

void PopupBook::clicked(PopupId id, const QString& activationToken)
{
    if (const auto popup = m_popups.find(m_ticketOfId.value(id)); popup != m_popups.end())
        answer(popup->second, std::make_unique<Answer::Click>(Answer::Click{id, activationToken}));
    else if (EarlyAnswer* early = earlyAnswer(id); early != nullptr && !early->isClosed)
        early->clickToken = activationToken;
}

void PopupBook::closed(PopupId id)
{
    if (const auto popup = m_popups.find(m_ticketOfId.value(id)); popup != m_popups.end()) {
        answer(popup->second);
        erase(popup);
    } else if (EarlyAnswer* early = earlyAnswer(id)) {
        early->isClosed = true;
    }
}

void PopupBook::withdraw(size_t group)
{
    for (auto& [ticket, popup] : m_popups) {
        if (popup.group == group)
            giveUp(popup);
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
        answer(current->second);
        erase(current);
    }
}

void PopupBook::advance(Time now)
{
    while (!m_popups.empty() && m_popups.begin()->second.since + backstop <= now) {
        if (!m_popups.begin()->second.context.isNull())
            giveUp(m_popups.begin()->second);
        erase(m_popups.begin());
    }
    dropEarlyAnswersIfUseless();
}

std::optional<PopupBook::Time> PopupBook::nextDeadline() const
{
    if (m_popups.empty())
        return std::nullopt;
    return m_popups.begin()->second.since + backstop;
}

std::deque<Answer> PopupBook::takeAnswers()
{
    return std::exchange(m_answers, {});
}

QList<PopupId> PopupBook::takeUnwanted()
{
    return std::exchange(m_unwanted, {});
}

QList<PopupId> PopupBook::clickableIds() const
{
    QList<PopupId> ids;
    for (const auto& [ticket, popup] : m_popups) {
        if (popup.id != 0 && !popup.context.isNull())
            ids.append(popup.id);
    }
    return ids;
}

/// Answers a pop-up unless it was answered before; it stays in the book.
void PopupBook::answer(Popup& popup, std::unique_ptr<Answer::Click> click)
{
    if (popup.context.isNull())
        return;
    m_answers.push_back({std::exchange(popup.context, {}), std::move(click)});
    --m_waitingCount;
}

/// Answers a pop-up of which the service has not said that it is gone.
void PopupBook::giveUp(Popup& popup)
{
    if (std::exchange(popup.unwanted, true))
        return;
    if (popup.id != 0)
        m_unwanted.append(popup.id);
    answer(popup);
}

void PopupBook::erase(Popups::iterator popup)
{
    if (popup->second.id == 0)
        --m_idlessCount;
    else if (m_ticketOfId.value(popup->second.id) == popup->first)
        m_ticketOfId.remove(popup->second.id);
    m_popups.erase(popup);
}

void PopupBook::keepToLimits()
{
    const auto owed = [](const auto& entry) { return !entry.second.context.isNull(); };
    if (m_waitingCount > waitingLimit)
        giveUp(std::find_if(m_popups.begin(), m_popups.end(), owed)->second);
    // Those that nobody waits for are as many at most: a service that never says what became of a pop-up must not fill
    // the memory.
    if (static_cast<int>(m_popups.size()) - m_waitingCount > waitingLimit)
        erase(std::find_if_not(m_popups.begin(), m_popups.end(), owed));
}

PopupBook::EarlyAnswer* PopupBook::earlyAnswer(PopupId id)
{
    const auto found = std::find_if(m_early.begin(), m_early.end(), [id](const auto& early) { return early.id == id; });
    if (found != m_early.end())
        return &*found;
    if (m_idlessCount == 0)
        return nullptr;
    // A service may speak of ids at random.
    if (m_early.size() >= waitingLimit)
        m_early.removeFirst();
    m_early.append(EarlyAnswer{.id = id, .clickToken = {}});
    return &m_early.last();
}

void PopupBook::dropEarlyAnswersIfUseless()
{
    if (m_idlessCount == 0)
        m_early.clear();
}

} // namespace zepa::growl
