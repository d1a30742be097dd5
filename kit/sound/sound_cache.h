// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/sound/sound_decoder.h"

#include <QString>

#include <cstddef>
#include <list>
#include <optional>

namespace zepa::audio {

/// Which content a file had: the same device, inode, size and time of change mean that it need not be read again.
struct FileIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 bytes = 0;
    qint64 changedSeconds = 0;
    qint64 changedNanoseconds = 0;

    bool operator==(const FileIdentity&) const = default;

    /// None when there is no such file.
    static std::optional<FileIdentity> of(const QString& path);
};

/// Sounds that were decoded lately, most recent first. Bounded in number and in samples. Belongs to one thread.
class SoundCache
{
public:
    static constexpr std::size_t maxClips = 16;
    static constexpr std::size_t maxSamples = SoundLimits::samples;

    /// The clip of the file as it is now, or why there is none. Failures are not kept: a repaired file plays.
    DecodedSound load(const QString& path);

    std::size_t clips() const { return m_entries.size(); }
    std::size_t samples() const { return m_samples; }

private:
    struct Entry
    {
        QString path;
        FileIdentity identity;
        std::shared_ptr<const SoundClip> clip;
    };

    void forget(std::list<Entry>::iterator entry);

    std::list<Entry> m_entries;
    std::size_t m_samples = 0;
};

} // namespace zepa::audio
