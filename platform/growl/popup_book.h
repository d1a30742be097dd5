// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "click_context.h"
#include "popup_service.h"

#include <QHash>
#include <QList>
#include <QString>

#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <optional>

namespace zepa::growl {

/// How one pop-up ended. Small: an application that posts without end leaves one for each posting.
struct Answer
{
    struct Click
    {
        PopupId id = 0;
        QString activationToken; ///< empty for none
    };

    ClickContext context;
    std::unique_ptr<Click> click; ///< null when it timed out
};

/// Pop-ups that the service shows for us, by the id that it gave them.
///
/// A pop-up goes through these states:
///  - waiting: posted, its id is not known yet; answers that come for unknown ids are kept for it;
///  - shown: its id is known;
///  - answered: clicked, or it never had a click context; kept until it is closed, so that what the service still says
///    of its id is not taken for an answer to another pop-up.
/// Every pop-up with a click context is answered exactly once: clicked or timed out. Answers gather here until
/// takeAnswers(). Ids belong to one run of the service: forgetShown() when it goes away.
///
/// Knows no clock: times are handed in and count from any fixed moment.
class PopupBook
{
public:
    using Time = std::chrono::milliseconds;

    /// A pop-up of which the service never speaks again counts as timed out after this time.
    static constexpr Time backstop = std::chrono::hours(24);
    /// At most so many pop-ups wait for an answer; beyond that the oldest counts as timed out.
    static constexpr int waitingLimit = 1000;

    /// Notes a posting whose id is not known yet; a null context for one that wants no answer. `group` is what
    /// withdraw() knows it by.
    Ticket expect(ClickContext context, size_t group, Time now);
    /// Joins the ticket with the id that the service returned; answers that came early count now.
    ///
    /// A service that shows one pop-up for two identical postings returns the id of the earlier: the earlier counts
    /// as timed out, the answer belongs to the later. False when nobody knows the ticket any more.
    bool settle(Ticket ticket, PopupId id);
    /// The service did not show the pop-up: it counts as timed out.
    void fail(Ticket ticket);

    /// The service says that the pop-up was clicked, or that it is gone.
    void clicked(PopupId id, const QString& activationToken);
    void closed(PopupId id);

    /// Every pop-up of that group counts as timed out and is unwanted, whether it wanted an answer or not.
    void withdraw(size_t group);
    /// The service went away: everything with an id counts as timed out and is forgotten. Those that wait for their id
    /// keep waiting: they are told shown by the next service, or not shown.
    void forgetShown();

    /// Lets time pass; to be called at nextDeadline() at the latest.
    void advance(Time now);
    /// When advance() has something to do; nothing when no pop-up waits.
    std::optional<Time> nextDeadline() const;

    /// What was answered since the last call, in order.
    std::deque<Answer> takeAnswers();
    bool hasAnswers() const { return !m_answers.empty(); }
    int waitingCount() const { return m_waitingCount; }
    /// Pop-ups that counted as timed out though the service shows them, since the last call: a click on one of them
    /// would do nothing any more. An id is told as soon as it is known.
    QList<PopupId> takeUnwanted();
    /// Pop-ups on the screen on which a click still means something.
    QList<PopupId> clickableIds() const;
    /// Postings whose id is still to come.
    int idlessCount() const { return m_idlessCount; }
    /// Whether the service still shows the pop-up, as far as it told; an answered one too.
    bool isShown(PopupId id) const { return m_ticketOfId.contains(id); }

private:
    struct Popup
    {
        ClickContext context; ///< null once answered
        size_t group = 0;
        Time since{};
        PopupId id = 0;        ///< 0 while waiting for it
        bool unwanted = false; ///< answered while the service showed it, or was about to
    };
    struct EarlyAnswer
    {
        PopupId id = 0;
        std::optional<QString> clickToken; ///< none: not clicked before it was closed
        bool isClosed = false;
    };
    using Popups = std::map<Ticket, Popup>;

    void answer(Popup& popup, std::unique_ptr<Answer::Click> click = nullptr);
    void giveUp(Popup& popup);
    void erase(Popups::iterator popup);
    void keepToLimits();
    /// Where what is said of an id that nobody has is kept; null when nobody waits for one.
    EarlyAnswer* earlyAnswer(PopupId id);
    void dropEarlyAnswersIfUseless();

    Popups m_popups; ///< oldest first
    QHash<PopupId, Ticket> m_ticketOfId;
    QList<EarlyAnswer> m_early;
    std::deque<Answer> m_answers;
    QList<PopupId> m_unwanted;
    Ticket m_lastTicket = 0;
    int m_waitingCount = 0; ///< with an answer owed
    int m_idlessCount = 0;  ///< still to be settled
};

} // namespace zepa::growl
