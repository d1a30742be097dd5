// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace zepa::audio {

/// The one thing that the caller's thread and the worker share: files that wait to be played, and how many are not
/// done yet. Bounded; every operation may be called from any thread.
class PlayQueue
{
public:
    PlayQueue();
    ~PlayQueue();
    Q_DISABLE_COPY_MOVE(PlayQueue)

    static constexpr std::size_t maxWaiting = 32;

    using Clock = std::chrono::steady_clock;
    struct Request
    {
        QString path;
        Clock::time_point since;
    };

    /// Becomes readable when the worker should look here; -1 when the system had none to give. See clearWake().
    int wakeDescriptor() const { return m_wake; }
    /// Call before looking, so that what comes meanwhile wakes again.
    void clearWake();

    /// False when the file was dropped because maxWaiting wait already.
    bool push(const QString& path);
    /// The one that waits longest. It stays counted as unfinished until finished().
    std::optional<Request> take();
    void finished();

    /// How many wait or sound.
    std::size_t unfinished() const;
    /// False when the time is over first.
    bool waitUntilIdle(std::chrono::milliseconds limit);

    /// A file that was dropped since the last call, for the log.
    std::optional<QString> takeDropped();

    void stop();
    bool isStopping() const;
    /// The worker's last act.
    void workerEnded();
    bool waitForWorker(std::chrono::milliseconds limit);

private:
    void wake();

    const int m_wake;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Request> m_waiting;
    std::size_t m_taken = 0;
    std::optional<QString> m_dropped;
    bool m_stopping = false;
    bool m_workerEnded = false;
};

} // namespace zepa::audio
