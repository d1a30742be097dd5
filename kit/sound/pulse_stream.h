// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/sound/sound_clip.h"

#include <QString>

#include <memory>
#include <pulse/context.h>
#include <pulse/operation.h>
#include <pulse/stream.h>

namespace zepa::audio {

/// One clip on its way to the sound server. Nothing here waits: pump() does what can be done now.
class PulseStream
{
public:
    enum class State { Playing, Finished, Failed };

    /// `context` is ready; it and the stream belong to the same thread. `name` is what a volume control shows.
    PulseStream(pa_context* context, const QString& name, std::shared_ptr<const SoundClip> clip);
    ~PulseStream();
    Q_DISABLE_COPY_MOVE(PulseStream)

    /// Hands the server as much as it asks for. Finished means that the last sample has sounded.
    State pump();

    /// Why it failed, in the words of the server's library.
    QString reason() const;

private:
    State write();

    pa_context* const m_context;
    const std::shared_ptr<const SoundClip> m_clip;
    pa_stream* m_stream = nullptr;
    pa_operation* m_drain = nullptr;
    std::size_t m_written = 0; ///< bytes
};

} // namespace zepa::audio
