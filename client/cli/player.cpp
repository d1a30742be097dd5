// SPDX-License-Identifier: Apache-2.0
#include "client/cli/player.h"

#include "client/cli/exit_code.h"
#include "client/cli/job.h"
#include "client/cli/poster.h"
#include "client/cli/work_slice.h"
#include "client/client.h"
#include "kit/journal/announce.h"

#include <QPointer>

#include <chrono>
#include <utility>

namespace zepa::cli {

namespace {

std::chrono::milliseconds inMilliseconds(double seconds)
{
    return std::chrono::milliseconds(static_cast<qint64>(seconds * 1000));
}

} // namespace

Player::Player(Client& client, Job& job, QList<Event> events, PlayLog::Form form,
               std::function<void(const Event&)> before)
    : QObject(&job), m_client(client), m_job(job), m_events(std::move(events)), m_log(form), m_before(std::move(before))
{
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    connect(&m_next, &QTimer::timeout, this, &Player::announceDue);
    connect(&job, &Job::hurried, this, &Player::finish);
}

void Player::play(std::optional<double> patience)
{
    m_patience = patience;
    m_clock.start();
    m_next.start(0);
}

void Player::announceDue()
{
    // Many events may be due at once.
    constexpr int mostEvents = 16;
    WorkSlice slice(mostEvents);
    while (m_announced < m_events.size()) {
        const double early = m_events[m_announced].at - seconds();
        if (early > 0)
            return m_next.start(inMilliseconds(early) + std::chrono::milliseconds(1));
        const QPointer<Player> self(this);
        announceNext();
        // Methods may do anything, such as handle events meanwhile in which the job is given up.
        if (!self || m_job.code())
            return;
        if (slice.isOver() && m_announced < m_events.size())
            return m_next.start(0);
    }
    if (!m_patience || m_waiting == 0)
        return finish();
    QTimer::singleShot(inMilliseconds(*m_patience), this, &Player::finish);
}

void Player::announceNext()
{
    const Event& event = m_events[m_announced++];
    if (m_before)
        m_before(event);
    const QPointer<Player> self(this);
    const Report report = announce(m_client.recorder(), postingOf(event, Answers::AsTheEventSays, m_job.folder()),
                                   [self, event](Answer answer) {
                                       if (self)
                                           self->answered(event, answer);
                                   });
    if (!self)
        return;
    m_waiting += report.waits ? 1 : 0;
    m_job.speak([&] { m_log.posted(seconds(), event, report); });
}

void Player::answered(const Event& event, Answer answer)
{
    if (m_job.code())
        return;
    m_job.speak([&] { m_log.answered(seconds(), event, answer); });
    --m_waiting;
    if (m_waiting == 0 && m_announced == m_events.size() && m_patience)
        finish();
}

void Player::finish()
{
    if (m_job.code())
        return;
    m_job.speak([this] { m_log.summary(m_waiting); });
    m_job.finish(Success);
}

double Player::seconds() const
{
    return static_cast<double>(m_clock.elapsed()) / 1000;
}

} // namespace zepa::cli
