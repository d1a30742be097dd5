// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/audio.h"
#include "kit/kit_export.h"

#include <QtGlobal>

#include <memory>
#include <thread>

namespace zepa::audio {

class PlayQueue;

/// The client's ZepaAudio: plays through the desktop's PulseAudio server (PipeWire's stands in for it as well).
///
/// Files are read, decoded and played in a thread of its own, which begins with the first file. Sounds that come
/// together sound together, at most eight; at most 32 more wait; beyond that, and after five seconds of waiting, a
/// sound is dropped. Whatever is not heard gets one line in the log category "zepa.audio" that names the file and says
/// why.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): a final class is never deleted through an heir.
class ZEPA_KIT_EXPORT AudioService final : public ZepaAudio
{
public:
    AudioService();
    /// Cuts off what sounds and ends the thread. Waits two seconds at most: a thread that a dead disk holds is left to
    /// itself.
    ~AudioService();
    Q_DISABLE_COPY_MOVE(AudioService)

    /// The object that ZepaAudio::getInstance() returns.
    static AudioService& instance();

    void playFile(QString path) override;

    /// Waits until everything asked for has sounded or was given up; false when `milliseconds` passed before. For
    /// programs that end at once; it stops the calling thread.
    bool waitUntilIdle(int milliseconds);

    /// How many files wait or sound.
    int unfinished() const;

private:
    bool startThread();

    // Shared with the thread, which outlives this object when it cannot be ended in time.
    const std::shared_ptr<PlayQueue> m_queue;
    std::thread m_thread;
};

} // namespace zepa::audio
