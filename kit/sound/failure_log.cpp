// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/failure_log.h"

#include "kit/sound/audio_log.h"

Q_LOGGING_CATEGORY(lcZepaAudio, "zepa.audio")

namespace zepa::audio {

void FailureLog::failed(const QString& path, const QString& reason)
{
    if (m_lastReason.value(path) == reason)
        return;
    if (m_lastReason.size() >= maxFiles)
        m_lastReason.clear();
    m_lastReason.insert(path, reason);
    // Streamed, not formatted: QDebug quotes the name, so that no file name can forge a line of the log.
    qCWarning(lcZepaAudio).nospace() << "no sound from " << path.left(4096) << ": " << qUtf8Printable(reason);
}

void FailureLog::succeeded(const QString& path)
{
    m_lastReason.remove(path);
}

} // namespace zepa::audio
