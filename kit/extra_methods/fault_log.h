// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>

namespace zepa {

/// Says once for each thing why it does not work, however often it is tried: a method is called for every message.
class FaultLog
{
public:
    /// The most things that are remembered; beyond it all are forgotten and may be told of again.
    static constexpr int mostThings = 64;

    /// Writes one line that names the thing, for example a program, unless the last line about it gave the same
    /// reason.
    void failed(const QString& thing, const QString& reason);
    /// It worked: its next failure is news again.
    void succeeded(const QString& thing);

private:
    QHash<QString, QString> m_lastReason;
};

} // namespace zepa
