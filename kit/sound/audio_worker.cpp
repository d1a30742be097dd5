// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/audio_worker.h"

using namespace Qt::StringLiterals;

namespace zepa::audio {
namespace {

/// How often time limits are looked at while something sounds; an idle worker sleeps until it is woken.
constexpr int beatMicroseconds = 100'000;

} // namespace

AudioWorker::AudioWorker(PlayQueue& queue, pa_mainloop* loop)
    : m_queue(queue)
    , m_loop(loop)
    , m_wake(watch(queue, loop))
    , m_player(loop, [this](const QString& path, const QString& failure) { ended(path, failure); })
{}

AudioWorker::~AudioWorker()
{
    pa_mainloop_get_api(m_loop)->io_free(m_wake);
}

/// The loop's own pa_mainloop_wakeup() is not used: it is lost when it comes before the loop prepares to sleep.
pa_io_event* AudioWorker::watch(PlayQueue& queue, pa_mainloop* loop)
{
    pa_mainloop_api* const api = pa_mainloop_get_api(loop);
    return api->io_new(
        api, queue.wakeDescriptor(), PA_IO_EVENT_INPUT,
        [](pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* data) {
            static_cast<PlayQueue*>(data)->clearWake();
        },
        &queue);
}

void AudioWorker::run()
{
    while (!m_queue.isStopping()) {
        m_player.tick();
        startWaiting();
        const int longest = m_player.sounding() > 0 ? beatMicroseconds : -1;
        if (pa_mainloop_prepare(m_loop, longest) < 0 || pa_mainloop_poll(m_loop) < 0 ||
            pa_mainloop_dispatch(m_loop) < 0)
            return;
    }
}

void AudioWorker::startWaiting()
{
    while (m_player.sounding() < PulsePlayer::maxSounding && !m_queue.isStopping()) {
        const std::optional<PlayQueue::Request> request = m_queue.take();
        if (!request)
            break;
        start(*request);
    }
    if (const std::optional<QString> dropped = m_queue.takeDropped())
        m_log.failed(*dropped, u"too many sounds are waiting"_s);
}

void AudioWorker::start(const PlayQueue::Request& request)
{
    if (PlayQueue::Clock::now() - request.since > staleAfter) {
        ended(request.path, u"it waited too long"_s);
        return;
    }
    const DecodedSound sound = m_cache.load(request.path);
    if (sound.clip)
        m_player.play(request.path, sound.clip);
    else
        ended(request.path, sound.reason);
}

void AudioWorker::ended(const QString& path, const QString& failure)
{
    if (failure.isEmpty())
        m_log.succeeded(path);
    else
        m_log.failed(path, failure);
    m_queue.finished();
}

} // namespace zepa::audio
