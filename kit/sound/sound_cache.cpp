// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/sound_cache.h"

#include <QFile>

#include <algorithm>
#include <iterator>
#include <sys/stat.h>

namespace zepa::audio {

std::optional<FileIdentity> FileIdentity::of(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

DecodedSound SoundCache::load(const QString& path)
{
    // Taken before the file is read: a change during the reading is then seen as a change the next time.
    const std::optional<FileIdentity> identity = FileIdentity::of(path);

    const auto known =
        std::find_if(m_entries.begin(), m_entries.end(), [&path](const Entry& entry) { return entry.path == path; });
    if (known != m_entries.end()) {
        if (known->identity == identity) {
            m_entries.splice(m_entries.begin(), m_entries, known);
            return {m_entries.front().clip, {}};
        }
        forget(known);
    }

    DecodedSound sound = decodeSound(path);
    if (sound.clip && identity) {
        m_entries.push_front({path, *identity, sound.clip});
        m_samples += sound.clip->samples.size();
        while (m_entries.size() > maxClips || m_samples > maxSamples)
            forget(std::prev(m_entries.end()));
    }
    return sound;
}

void SoundCache::forget(std::list<Entry>::iterator entry)
{
    m_samples -= entry->clip->samples.size();
    m_entries.erase(entry);
}

} // namespace zepa::audio
