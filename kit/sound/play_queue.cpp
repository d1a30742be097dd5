// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/play_queue.h"

#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace zepa::audio {

PlayQueue::PlayQueue() : m_wake(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{}

PlayQueue::~PlayQueue()
{
    if (m_wake >= 0)
        ::close(m_wake);
}

void PlayQueue::wake()
{
    ::eventfd_write(m_wake, 1);
}

void PlayQueue::clearWake()
{
    eventfd_t count = 0;
    ::eventfd_read(m_wake, &count);
}

bool PlayQueue::push(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() >= maxWaiting) {
        m_dropped = path;
        return false;
    }
    m_waiting.push_back({path, Clock::now()});
    if (m_waiting.size() == 1)
        wake();
    return true;
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
    wake();
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
