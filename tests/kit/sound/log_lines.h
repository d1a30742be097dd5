// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

#include <mutex>

/// Collects the lines of the client's log categories ("zepa.audio", ...) while it lives; one at a time.
class LogLines
{
public:
    LogLines() { s_before = qInstallMessageHandler(take); }
    ~LogLines() { qInstallMessageHandler(s_before); }
    Q_DISABLE_COPY_MOVE(LogLines)

    /// The lines so far. Complete once the service is idle or gone.
    QStringList lines() const
    {
        const std::lock_guard lock(s_mutex);
        return s_lines;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (!QLatin1String(context.category).startsWith(QLatin1String("zepa.")))
            return s_before ? s_before(type, context, text) : void();
        const std::lock_guard lock(s_mutex);
        s_lines.append(text);
    }

    static inline QtMessageHandler s_before = nullptr;
    static inline std::mutex s_mutex;
    static inline QStringList s_lines;
};
