// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/fault_log.h"

#include "kit/extra_methods/methods_log.h"

Q_LOGGING_CATEGORY(lcZepaMethods, "zepa.methods")

namespace zepa {

void FaultLog::failed(const QString& thing, const QString& reason)
{
    if (m_lastReason.value(thing) == reason)
        return;
    if (m_lastReason.size() >= mostThings)
        m_lastReason.clear();
    m_lastReason.insert(thing, reason);
    // Streamed, not formatted: QDebug quotes the name, so that no setting can forge a line of the log.
    qCWarning(lcZepaMethods).nospace() << thing.left(4096) << ": " << qUtf8Printable(reason);
}

void FaultLog::succeeded(const QString& thing)
{
    m_lastReason.remove(thing);
}

} // namespace zepa
