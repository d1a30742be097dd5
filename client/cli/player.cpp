// SPDX-License-Identifier: Apache-2.0
#include "client/cli/player.h"

#include "client/cli/poster.h"
#include "client/posting/announce.h"

#include <chrono>
#include <utility>

namespace zepa::cli {

namespace {

std::chrono::milliseconds inMilliseconds(double seconds)
{
    return std::chrono::milliseconds(static_cast<qint64>(seconds * 1000));
}

} // namespace

Player::Player(Client& client, QList<Event> events, PlayLog& log, std::function<void(const Event&)> before)
    : m_client(client), m_events(std::move(events)), m_log(log), m_before(std::move(before))
{
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_next, &QTimer::timeout, &m_loop, [this] { announceDue(); });
}

int Player::play(std::optional<double> patience)
{
    m_clock.start();
    m_next.start(0);
    m_loop.exec();
    if (patience && m_waiting > 0) {
        QTimer end;
        end.setSingleShot(true);
        QObject::connect(&end, &QTimer::timeout, &m_loop, &QEventLoop::quit);
        end.start(inMilliseconds(*patience));
        m_loop.exec();
    }
    *m_listening = false;
    return m_waiting;
}

void Player::announceDue()
{
    while (m_announced < m_events.size()) {
        const Event& event = m_events[m_announced];
        const double early = event.at - seconds();
        if (early > 0)
            return m_next.start(inMilliseconds(early) + std::chrono::milliseconds(1));
        ++m_announced;
        if (m_before)
            m_before(event);
        const auto answered = [this, event, listening = m_listening](Answer answer) {
            if (!*listening)
                return;
            m_log.answered(seconds(), event, answer);
            --m_waiting;
            if (m_waiting == 0 && m_announced == m_events.size())
                m_loop.quit();
        };
        const Report report = announce(m_client, postingOf(event, Answers::AsTheEventSays), answered);
        m_waiting += report.waits ? 1 : 0;
        m_log.posted(seconds(), event, report);
    }
    m_loop.quit();
}

double Player::seconds() const
{
    return static_cast<double>(m_clock.elapsed()) / 1000;
}

} // namespace zepa::cli
