// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>

namespace zepa::audio {

/// Says once for each file why it is not heard, however often it is asked for. Belongs to one thread.
class FailureLog
{
public:
    /// The most files that are remembered; beyond it all are forgotten and may be told of again.
    static constexpr int maxFiles = 64;

    /// Writes one line that names the file, unless the last line about this file gave the same reason.
    void failed(const QString& path, const QString& reason);
    /// The file was heard: its next failure is news again.
    void succeeded(const QString& path);

private:
    QHash<QString, QString> m_lastReason;
};

} // namespace zepa::audio
