// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/pulse_player.h"

#include <QFileInfo>

#include <pulse/error.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::audio {

PulsePlayer::PulsePlayer(pa_mainloop* loop, Ended ended) : m_loop(loop), m_ended(std::move(ended))
{}

PulsePlayer::~PulsePlayer()
{
    m_sounds.clear();
    disconnectFromServer();
}

void PulsePlayer::play(const QString& path, std::shared_ptr<const SoundClip> clip)
{
    if (!m_context && !connectToServer()) {
        m_ended(path, u"no sound server can be asked"_s);
        return;
    }
    m_sounds.push_back({path, std::move(clip), Clock::now() + answerLimit, nullptr});
}

void PulsePlayer::tick()
{
    if (!m_context)
        return;
    if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context))) {
        const QString reason = QString::fromUtf8(pa_strerror(pa_context_errno(m_context)));
        disconnectFromServer();
        endAll(u"no sound server: %1"_s.arg(reason));
        return;
    }

    const Clock::time_point now = Clock::now();
    for (auto sound = m_sounds.begin(); sound != m_sounds.end();)
        sound = hasEnded(*sound, now) ? m_sounds.erase(sound) : std::next(sound);

    // A server that hangs gets no second clip over the same connection.
    if (m_unanswered && m_sounds.empty())
        disconnectFromServer();
}

bool PulsePlayer::hasEnded(Sound& sound, Clock::time_point now)
{
    if (!sound.stream && pa_context_get_state(m_context) == PA_CONTEXT_READY) {
        sound.stream = std::make_unique<PulseStream>(m_context, QFileInfo(sound.path).fileName(), sound.clip);
        sound.deadline = now + sound.clip->duration() + answerLimit;
    }
    const PulseStream::State state = sound.stream ? sound.stream->pump() : PulseStream::State::Playing;
    if (state == PulseStream::State::Finished) {
        m_ended(sound.path, {});
        return true;
    }
    if (state == PulseStream::State::Failed) {
        m_ended(sound.path, u"the sound server refused it: %1"_s.arg(sound.stream->reason()));
        return true;
    }
    if (now < sound.deadline)
        return false;
    m_unanswered = true;
    m_ended(sound.path, u"the sound server does not answer"_s);
    return true;
}

bool PulsePlayer::connectToServer()
{
    pa_proplist* const properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Zepa");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "zepa");
    m_context = pa_context_new_with_proplist(pa_mainloop_get_api(m_loop), nullptr, properties);
    pa_proplist_free(properties);
    if (m_context && pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        disconnectFromServer();
    return m_context != nullptr;
}

void PulsePlayer::disconnectFromServer()
{
    m_unanswered = false;
    if (pa_context* const context = std::exchange(m_context, nullptr)) {
        // Streams hold on to the connection: they go first.
        for (Sound& sound : m_sounds)
            sound.stream.reset();
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
}

void PulsePlayer::endAll(const QString& failure)
{
    for (const Sound& sound : std::exchange(m_sounds, {}))
        m_ended(sound.path, failure);
}

} // namespace zepa::audio
