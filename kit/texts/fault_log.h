// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QLoggingCategory>
#include <QString>

namespace zepa {

/// Says once for each thing why it does not work, however often it is tried: a sound is asked for, and a method called,
/// for every message. Belongs to one thread. Needs Qt Core alone.
class FaultLog
{
public:
    using Category = const QLoggingCategory& (*)();

    /// The most things that are remembered; beyond it all are forgotten and may be told of again.
    static constexpr int mostThings = 64;

    /// `beginning` stands in each line before the thing.
    explicit FaultLog(Category category, const char* beginning = "") : m_category(category), m_beginning(beginning) {}

    /// Writes one line that names the thing, for example a program or a file, unless the last line about it gave the
    /// same reason.
    void failed(const QString& thing, const QString& reason)
    {
        if (m_lastReason.value(thing) == reason)
            return;
        if (m_lastReason.size() >= mostThings)
            m_lastReason.clear();
        m_lastReason.insert(thing, reason);
        // Streamed, not formatted: QDebug quotes the name, so that neither a setting nor a file can forge a line.
        qCWarning(m_category).nospace() << m_beginning << thing.left(4096) << ": " << qUtf8Printable(reason);
    }
    /// It worked: its next failure is told of again.
    void succeeded(const QString& thing) { m_lastReason.remove(thing); }

private:
    const Category m_category;
    const char* const m_beginning;
    QHash<QString, QString> m_lastReason;
};

} // namespace zepa
