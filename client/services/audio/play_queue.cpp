// SPDX-License-Identifier: Apache-2.0
#include "client/services/audio/play_queue.h"

#include <utility>

namespace zepa::audio {

PlayQueue::Push PlayQueue::push(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() >= maxWaiting) {
        m_dropped = path;
        return Push::Full;
    }
    m_waiting.push_back({path, Clock::now()});
    return m_waiting.size() == 1 ? Push::First : Push::Behind;
}

std::optional<PlayQueue::Request> PlayQueue::take()
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.empty())
        return std::nullopt;
    Request request = std::move(m_waiting.front());
    m_waiting.pop_front();
    ++m_taken;
    return request;
}

void PlayQueue::finished()
{
    const std::lock_guard lock(m_mutex);
    --m_taken;
    m_changed.notify_all();
}

std::size_t PlayQueue::unfinished() const
{
    const std::lock_guard lock(m_mutex);
    return m_waiting.size() + m_taken;
}

bool PlayQueue::waitUntilIdle(std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, limit, [this] { return m_waiting.empty() && m_taken == 0; });
}

std::optional<QString> PlayQueue::takeDropped()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_dropped, std::nullopt);
}

void PlayQueue::stop()
{
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
}

bool PlayQueue::isStopping() const
{
    const std::lock_guard lock(m_mutex);
    return m_stopping;
}

void PlayQueue::workerEnded()
{
    const std::lock_guard lock(m_mutex);
    m_workerEnded = true;
    m_changed.notify_all();
}

bool PlayQueue::waitForWorker(std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, limit, [this] { return m_workerEnded; });
}

} // namespace zepa::audio
