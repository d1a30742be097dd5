// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/audio_service.h"

#include "kit/sound/audio_log.h"
#include "kit/sound/audio_worker.h"

#include <csignal>
#include <pulse/mainloop.h>
#include <system_error>
#include <utility>

namespace zepa::audio {
namespace {

constexpr std::chrono::seconds shutdownLimit{2};

struct FreeLoop
{
    void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
};

/// The application's signals are for its own threads; only those that report a fault of this one stay open. In force
/// for the calling thread, and for a thread that it begins, while the object lives.
class SignalsBlocked
{
public:
    SignalsBlocked()
    {
        sigset_t blocked = {};
        sigfillset(&blocked);
        for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS})
            sigdelset(&blocked, fault);
        pthread_sigmask(SIG_SETMASK, &blocked, &m_before);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    Q_DISABLE_COPY_MOVE(SignalsBlocked)

private:
    sigset_t m_before = {};
};

} // namespace

AudioService::AudioService() : m_queue(std::make_shared<PlayQueue>())
{
    // Made here, so that at the program's end the category outlives this object and its thread.
    lcZepaAudio();
}

AudioService::~AudioService()
{
    if (!m_thread.joinable())
        return;
    m_queue->stop();
    if (m_queue->waitForWorker(shutdownLimit))
        m_thread.join();
    else
        m_thread.detach();
}

AudioService& AudioService::instance()
{
    static AudioService service;
    return service;
}

void AudioService::playFile(QString path)
{
    if (m_thread.joinable() || startThread())
        m_queue->push(path);
}

bool AudioService::waitUntilIdle(int milliseconds)
{
    return m_queue->waitUntilIdle(std::chrono::milliseconds(milliseconds));
}

int AudioService::unfinished() const
{
    return static_cast<int>(m_queue->unfinished());
}

bool AudioService::startThread()
{
    std::unique_ptr<pa_mainloop, FreeLoop> loop(pa_mainloop_new());
    if (!loop || m_queue->wakeDescriptor() < 0) {
        qCWarning(lcZepaAudio) << "no sounds: the system has no file descriptors left";
        return false;
    }
    const SignalsBlocked blocked;
    try {
        m_thread = std::thread([queue = m_queue, loop = std::move(loop)] {
            AudioWorker(*queue, loop.get()).run();
            queue->workerEnded();
        });
    } catch (const std::system_error& error) {
        qCWarning(lcZepaAudio) << "no sounds:" << error.what();
    }
    return m_thread.joinable();
}

} // namespace zepa::audio

ZepaAudio* ZepaAudio::getInstance()
{
    return &zepa::audio::AudioService::instance();
}
