// SPDX-License-Identifier: Apache-2.0
#include "client/instance/caller_lookups.h"

#include "client/instance/caller_policy.h"

#include <QSocketNotifier>
#include <QTimer>

#include <sys/eventfd.h>

#include <system_error>
#include <thread>
#include <utility>

namespace zepa::instance {

namespace {

/// What the thread leaves behind. It shares nothing else with us, so that it may outlive everything.
struct Answer
{
    QString problem;
    std::atomic<bool> isThere = false;
    SharedDescriptor bell = shareDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
};

/// One question that is waited for. Deletes itself when it has called `done`.
class Wait final : public QObject
{
public:
    Wait(std::shared_ptr<Answer> answer, std::chrono::milliseconds limit, std::function<void(const QString&)> done,
         QObject* parent)
        : QObject(parent)
        , m_answer(std::move(answer))
        , m_done(std::move(done))
        , m_ring(*m_answer->bell, QSocketNotifier::Read)
    {
        connect(&m_ring, &QSocketNotifier::activated, this, &Wait::finish);
        connect(&m_limit, &QTimer::timeout, this, &Wait::finish);
        m_limit.setSingleShot(true);
        m_limit.start(limit);
    }

private:
    void finish()
    {
        m_ring.setEnabled(false);
        m_limit.stop();
        deleteLater();
        const auto done = std::exchange(m_done, {});
        if (done)
            done(m_answer->isThere ? m_answer->problem : unknownCaller("its file system does not respond"));
    }

    const std::shared_ptr<Answer> m_answer;
    std::function<void(const QString&)> m_done;
    QSocketNotifier m_ring;
    QTimer m_limit;
};

} // namespace

CallerLookups::CallerLookups(std::chrono::milliseconds limit)
    : m_limit(limit), m_running(std::make_shared<std::atomic<int>>(0))
{}

void CallerLookups::ask(std::function<QString()> question, std::function<void(const QString&)> done)
{
    auto answer = std::make_shared<Answer>();
    if (*m_running >= mostAtOnce || !answer->bell)
        return done(unknownCaller("too many other callers are being looked up"));
    ++*m_running;
    try {
        std::thread([answer, running = m_running, question = std::move(question)] {
            answer->problem = question();
            answer->isThere = true;
            --*running;
            ::eventfd_write(*answer->bell, 1);
        }).detach();
    } catch (const std::system_error&) {
        --*m_running;
        return done(unknownCaller("no thread could be started for the look-up"));
    }
    new Wait(std::move(answer), m_limit, std::move(done), this);
}

} // namespace zepa::instance
