// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QElapsedTimer>

namespace zepa::cli {

/// A piece of long work, begun when it is made. When it is over, the rest waits until the event loop had its turn, so
/// that windows and other callers do not wait for the whole.
class WorkSlice
{
public:
    /// Over after so many steps, or after a few milliseconds, whichever comes first.
    explicit WorkSlice(int steps) : m_stepsLeft(steps) { m_clock.start(); }

    /// To be asked after each step.
    bool isOver() { return --m_stepsLeft <= 0 || m_clock.elapsed() >= milliseconds; }

private:
    static constexpr qint64 milliseconds = 5;

    QElapsedTimer m_clock;
    int m_stepsLeft;
};

} // namespace zepa::cli
