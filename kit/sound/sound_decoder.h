// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"
#include "kit/sound/sound_clip.h"

#include <QString>

#include <memory>

namespace zepa::audio {

/// What became of a file: a clip, or the reason why there is none.
struct DecodedSound
{
    std::shared_ptr<const SoundClip> clip; ///< null when the file cannot be played
    QString reason;                        ///< for the log, in English; empty when there is a clip
};

/// Sounds for notifications are short. What is above one of these limits is not played at all.
struct SoundLimits
{
    static constexpr qint64 fileBytes = qint64{64} * 1024 * 1024;
    /// Frames times channels: 47 s of 44.1 kHz stereo, 16 MiB.
    static constexpr std::size_t samples = std::size_t{4} * 1024 * 1024;
    static constexpr int channels = 8;
    static constexpr int minRate = 4000;
    static constexpr int maxRate = 192000;
};

/// Reads a sound file (WAV, AIFF, Ogg Vorbis, FLAC and whatever else libsndfile knows) whole into memory.
///
/// Only regular files are opened: a FIFO, a device or a directory is refused unopened, since opening one can wait for
/// ever or have effects. Waits for the disk; not for the GUI thread.
ZEPA_KIT_EXPORT DecodedSound decodeSound(const QString& path);

} // namespace zepa::audio
