// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/pulse_stream.h"

#include <algorithm>
#include <pulse/channelmap.h>
#include <pulse/error.h>
#include <pulse/proplist.h>
#include <pulse/sample.h>

namespace zepa::audio {

PulseStream::PulseStream(pa_context* context, const QString& name, std::shared_ptr<const SoundClip> clip)
    : m_context(context), m_clip(std::move(clip))
{
    pa_sample_spec format = {};
    format.format = PA_SAMPLE_FLOAT32NE;
    format.rate = static_cast<uint32_t>(m_clip->rate);
    format.channels = static_cast<uint8_t>(m_clip->channels);
    pa_channel_map channels = {};
    pa_channel_map_init_extend(&channels, format.channels, PA_CHANNEL_MAP_WAVEEX);

    // The role lets the desktop's volume for event sounds, and its silence during a call, apply to us.
    pa_proplist* const properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "event");
    m_stream = pa_stream_new_with_proplist(context, name.toUtf8().constData(), &format, &channels, properties);
    pa_proplist_free(properties);

    if (m_stream && pa_stream_connect_playback(m_stream, nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr) < 0) {
        pa_stream_unref(m_stream);
        m_stream = nullptr;
    }
}

PulseStream::~PulseStream()
{
    if (m_drain) {
        pa_operation_cancel(m_drain);
        pa_operation_unref(m_drain);
    }
    if (m_stream) {
        pa_stream_disconnect(m_stream);
        pa_stream_unref(m_stream);
    }
}

PulseStream::State PulseStream::pump()
{
    if (!m_stream || !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream)))
        return State::Failed;
    if (pa_stream_get_state(m_stream) != PA_STREAM_READY)
        return State::Playing;
    if (!m_drain)
        return write();
    return pa_operation_get_state(m_drain) == PA_OPERATION_RUNNING ? State::Playing : State::Finished;
}

PulseStream::State PulseStream::write()
{
    const std::size_t frame = sizeof(float) * static_cast<std::size_t>(m_clip->channels);
    const std::size_t total = m_clip->samples.size() * sizeof(float);
    const std::size_t wanted = pa_stream_writable_size(m_stream);
    if (wanted == static_cast<std::size_t>(-1))
        return State::Failed;

    const std::size_t bytes = std::min(wanted - wanted % frame, total - m_written);
    if (bytes > 0) {
        const auto* const data = reinterpret_cast<const char*>(m_clip->samples.data()) + m_written;
        if (pa_stream_write(m_stream, data, bytes, nullptr, 0, PA_SEEK_RELATIVE) < 0)
            return State::Failed;
        m_written += bytes;
    }
    if (m_written == total) {
        m_drain = pa_stream_drain(m_stream, nullptr, nullptr);
        if (!m_drain)
            return State::Failed;
    }
    return State::Playing;
}

QString PulseStream::reason() const
{
    return QString::fromUtf8(pa_strerror(pa_context_errno(m_context)));
}

} // namespace zepa::audio
