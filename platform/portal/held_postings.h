// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <utility>

namespace zepa::portal {

/// Postings that cannot go out yet, in their order. What is above a limit is given up, the oldest first.
template <typename Posting>
class HeldPostings
{
public:
    static constexpr std::size_t countLimit = 1000;
    /// Of all together; a single posting may exceed it.
    static constexpr qsizetype byteLimit = qsizetype(16) * 1024 * 1024;
    /// For each of them, in milliseconds.
    static constexpr int timeLimit = 5000;

    /// `givenUp` gets the tickets of those, also from inside append() and giveUpAll().
    explicit HeldPostings(std::function<void(growl::Ticket)> givenUp) : m_givenUp(std::move(givenUp))
    {
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout([this] { giveUpWhile([this] { return m_held.front().deadline.hasExpired(); }); });
    }
    Q_DISABLE_COPY_MOVE(HeldPostings)
    ~HeldPostings() = default;

    bool isEmpty() const { return m_held.empty(); }

    /// `bytes` is the memory that it takes.
    void append(growl::Ticket ticket, Posting posting, qsizetype bytes)
    {
        m_held.push_back({ticket, std::move(posting), bytes, QDeadlineTimer(timeLimit)});
        m_bytes += bytes;
        giveUpWhile([this] { return m_held.size() > countLimit || (m_held.size() > 1 && m_bytes > byteLimit); });
    }

    /// The oldest, of which there must be one.
    std::pair<growl::Ticket, Posting> takeFirst()
    {
        Held first = std::move(m_held.front());
        m_held.pop_front();
        m_bytes -= first.bytes;
        return {first.ticket, std::move(first.posting)};
    }

    void giveUpAll()
    {
        giveUpWhile([] { return true; });
    }

private:
    struct Held
    {
        growl::Ticket ticket;
        Posting posting;
        qsizetype bytes;
        QDeadlineTimer deadline;
    };

    template <typename Condition>
    void giveUpWhile(Condition isTooMuch)
    {
        while (!m_held.empty() && isTooMuch())
            m_givenUp(takeFirst().first);
        if (m_held.empty())
            m_timer.stop();
        else if (!m_timer.isActive())
            m_timer.start(std::chrono::milliseconds(m_held.front().deadline.remainingTime() + 1));
    }

    std::deque<Held> m_held;
    qsizetype m_bytes = 0;
    QTimer m_timer; ///< of the oldest, or earlier
    std::function<void(growl::Ticket)> m_givenUp;
};

} // namespace zepa::portal
