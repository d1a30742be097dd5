// SPDX-License-Identifier: Apache-2.0
#include "core/local_clock.h"

#include <QDateTime>

namespace {

constexpr qint64 millisecondsPerQuarter = qint64(15) * 60 * 1000;
constexpr qint64 millisecondsPerDay = 96 * millisecondsPerQuarter;

/// Rounds down before 1970, too.
qint64 quarterOf(qint64 universal)
{
    return universal >= 0 ? universal / millisecondsPerQuarter : (universal + 1) / millisecondsPerQuarter - 1;
}

} // namespace

LocalClock::LocalClock()
{
    follow(QDateTime::currentMSecsSinceEpoch());
}

int LocalClock::now()
{
    return localTime(QDateTime::currentMSecsSinceEpoch());
}

int LocalClock::localTime(qint64 universal)
{
    if (quarterOf(universal) != quarter)
        follow(universal);
    const qint64 time = (universal + offset) % millisecondsPerDay;
    return static_cast<int>(time < 0 ? time + millisecondsPerDay : time);
}

void LocalClock::follow(qint64 universal)
{
    quarter = quarterOf(universal);
    offset = QDateTime::fromMSecsSinceEpoch(universal).time().msecsSinceStartOfDay() - universal % millisecondsPerDay;
}
