// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/event_wait.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace zepa {

bool handleEventsUntil(const std::function<bool()>& done, std::chrono::milliseconds limit)
{
    if (done())
        return true;
    QEventLoop loop;
    QTimer beat;
    QElapsedTimer clock;
    clock.start();
    QObject::connect(&beat, &QTimer::timeout, &loop, [&] {
        if (done() || clock.hasExpired(limit.count()))
            loop.quit();
    });
    beat.start(std::chrono::milliseconds(5));
    loop.exec();
    return done();
}

} // namespace zepa
