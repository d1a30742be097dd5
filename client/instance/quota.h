// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>

namespace zepa::instance {

/// Counts what is under way: so much in all, and for each caller so much that the others keep room.
class Quota
{
public:
    Quota(int most, int mostPerCaller) : m_most(most), m_mostPerCaller(mostPerCaller) {}

    enum class Answer {
        Taken,
        TooManyOfCaller, ///< nothing was taken; others may still have room
        TooMany          ///< nothing was taken, and nobody has room
    };
    /// Takes a place for the caller, to be given back once.
    Answer take(const QString& caller);
    void giveBack(const QString& caller);

    int most() const { return m_most; }
    int mostPerCaller() const { return m_mostPerCaller; }

private:
    const int m_most;
    const int m_mostPerCaller;
    int m_taken = 0;
    QHash<QString, int> m_takenBy;
};

} // namespace zepa::instance
