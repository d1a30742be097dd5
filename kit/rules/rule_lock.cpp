// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_lock.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>

#include <cerrno>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

int openFolder(const QString& path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

bool lockWaiting(int descriptor)
{
    int result = -1;
    do
        result = ::flock(descriptor, LOCK_EX);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

/// Shared with the thread that waits, which may be left behind.
struct RuleLock::State
{
    explicit State(const QString& folder) : descriptor(openFolder(folder)), queue(openFolder(folder + u"/.."_s)) {}
    ~State()
    {
        for (const int open : {descriptor, queue}) {
            if (open >= 0)
                ::close(open);
        }
    }
    Q_DISABLE_COPY_MOVE(State)

    const int descriptor;
    /// The folder above, which is locked by who is the next: without it, a client that gives the lock back and wants it
    /// again at once would have it before one that is only about to be woken. -1 where it may not be read.
    const int queue;
    std::mutex mutex;
    std::condition_variable changed;
    bool isHeld = false;
    bool isWaiting = false;
};

RuleLock::RuleLock(const QString& folder) : m_state(std::make_shared<State>(folder))
{}

RuleLock::~RuleLock()
{
    // A thread that still waits has the state for itself, and gives the lock back with it.
    if (isHeld())
        ::flock(m_state->descriptor, LOCK_UN);
}

bool RuleLock::isHeld() const
{
    const std::lock_guard guard(m_state->mutex);
    return m_state->isHeld;
}

bool RuleLock::isPossible() const
{
    return m_state->descriptor >= 0;
}

bool RuleLock::tryNow()
{
    const std::lock_guard guard(m_state->mutex);
    if (m_state->isHeld || m_state->isWaiting || !isPossible())
        return m_state->isHeld;
    const bool hasQueue = m_state->queue >= 0;
    if (hasQueue && ::flock(m_state->queue, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return false;
    m_state->isHeld = ::flock(m_state->descriptor, LOCK_EX | LOCK_NB) == 0;
    if (hasQueue)
        ::flock(m_state->queue, LOCK_UN);
    return m_state->isHeld;
}

void RuleLock::beginWaiting()
{
    if (tryNow() || !isPossible())
        return;
    {
        const std::lock_guard guard(m_state->mutex);
        if (std::exchange(m_state->isWaiting, true))
            return;
    }
    // The system wakes those who wait in the order in which they came. To ask again and again would be left to luck,
    // and under load somebody has none for two seconds. A thread can be left behind, where a blocked call cannot be.
    std::thread([state = m_state] {
        const bool isNext = state->queue >= 0 && lockWaiting(state->queue);
        // Nobody may want it any more.
        const bool isHeld = state.use_count() > 1 && lockWaiting(state->descriptor);
        if (isNext)
            ::flock(state->queue, LOCK_UN);
        const std::lock_guard guard(state->mutex);
        state->isHeld = isHeld;
        state->isWaiting = false;
        state->changed.notify_all();
    }).detach();
}

bool RuleLock::wait()
{
    beginWaiting();
    std::unique_lock guard(m_state->mutex);
    return m_state->changed.wait_for(guard, timeout, [this] { return !m_state->isWaiting; }) && m_state->isHeld;
}

void whenLocked(const QString& folder, QObject* context, const std::function<void(RuleLock&)>& then)
{
    auto lock = std::make_shared<RuleLock>(folder);
    lock->beginWaiting();
    if (lock->isHeld() || !lock->isPossible())
        return then(*lock);
    auto* timer = new QTimer(context);
    timer->setTimerType(Qt::PreciseTimer);
    constexpr std::chrono::milliseconds step{5};
    QObject::connect(timer, &QTimer::timeout, context,
                     [timer, lock, then, deadline = QDeadlineTimer(RuleLock::timeout)]() mutable {
                         if (!lock->isHeld() && !deadline.hasExpired())
                             return;
                         timer->stop();
                         // The timer owns this function and with it the lock; `then` may run an event loop.
                         const auto held = std::exchange(lock, nullptr);
                         const auto call = then;
                         timer->deleteLater();
                         call(*held);
                     });
    timer->start(step);
}

} // namespace zepa
