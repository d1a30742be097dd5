// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/sound/audio_log.h"
#include "kit/sound/play_queue.h"
#include "kit/sound/pulse_player.h"
#include "kit/sound/sound_cache.h"
#include "kit/texts/fault_log.h"

namespace zepa::audio {

/// What the worker thread does: takes files from the queue, decodes them and has them played, until the queue stops.
class AudioWorker
{
public:
    /// A sound that could not begin within this time is dropped: it would no longer tell when its event happened.
    static constexpr std::chrono::seconds staleAfter{5};

    /// `queue` and `loop` outlive the worker; nothing else uses the loop.
    AudioWorker(PlayQueue& queue, pa_mainloop* loop);
    ~AudioWorker();
    Q_DISABLE_COPY_MOVE(AudioWorker)

    void run();

private:
    static pa_io_event* watch(PlayQueue& queue, pa_mainloop* loop);
    void startWaiting();
    void start(const PlayQueue::Request& request);
    void ended(const QString& path, const QString& failure);

    PlayQueue& m_queue;
    pa_mainloop* const m_loop;
    pa_io_event* const m_wake;
    SoundCache m_cache;
    FaultLog m_log{lcZepaAudio, "no sound from "};
    PulsePlayer m_player;
};

} // namespace zepa::audio
