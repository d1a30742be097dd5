// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <functional>

/// Lets the event loop run until it holds; false when it does not within `patience` milliseconds.
inline bool runUntil(const std::function<bool()>& condition, int patience = 30000)
{
    const QDeadlineTimer deadline(patience);
    QTimer alarm; // wakes the loop for conditions that no event of this process announces
    alarm.start(5);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}
