// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>

/// Runs Qt's event loop for that long.
inline void runEventLoop(int microseconds)
{
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::microseconds(microseconds)));
    loop.exec();
}
