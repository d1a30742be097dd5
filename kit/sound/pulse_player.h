// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/sound/pulse_stream.h"

#include <QString>

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <pulse/context.h>
#include <pulse/mainloop.h>

namespace zepa::audio {

/// Clips that sound now, mixed by the sound server, and the connection to it.
///
/// Connects when the first clip comes, never starts a server itself, and connects anew after the server went away.
/// Each clip given to play() is reported once: it has sounded, or it cannot. A server that does not answer is given up
/// after answerLimit. Nothing waits; the owner turns the loop and calls tick() after each turn, all in one thread.
class PulsePlayer
{
public:
    static constexpr std::size_t maxSounding = 8;
    static constexpr std::chrono::seconds answerLimit{5};

    /// `failure` is empty when the clip has sounded.
    using Ended = std::function<void(const QString& path, const QString& failure)>;

    /// `loop` outlives the player. `ended` must not call the player.
    PulsePlayer(pa_mainloop* loop, Ended ended);
    ~PulsePlayer();
    Q_DISABLE_COPY_MOVE(PulsePlayer)

    void play(const QString& path, std::shared_ptr<const SoundClip> clip);
    void tick();

    /// How many clips are not reported yet. The caller keeps it at maxSounding or below.
    std::size_t sounding() const { return m_sounds.size(); }

private:
    using Clock = std::chrono::steady_clock;
    struct Sound
    {
        QString path;
        std::shared_ptr<const SoundClip> clip;
        Clock::time_point deadline;
        std::unique_ptr<PulseStream> stream; ///< null until the connection stands
    };

    bool connectToServer();
    void disconnectFromServer();
    void endAll(const QString& failure);
    bool hasEnded(Sound& sound, Clock::time_point now);

    pa_mainloop* const m_loop;
    const Ended m_ended;
    pa_context* m_context = nullptr;
    std::list<Sound> m_sounds;
    bool m_unanswered = false; ///< the connection has let a clip run out of time
};

} // namespace zepa::audio
