// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

/// The local time of day, for asking often in a row: always what QTime::currentTime() would say, at a fraction of what
/// that costs. Clocks change at quarters of an hour, so the way from universal to local time is found once for each.
///
/// Make one where it is needed and do not keep it: it does not notice that the user changed the time zone.
class LocalClock
{
public:
    LocalClock();

    /// In milliseconds since midnight; asks the system's clock each time.
    int now();

private:
    int localTime(qint64 universal);
    void follow(qint64 universal);

    qint64 quarter = 0;
    qint64 offset = 0; ///< milliseconds from universal to local time in that quarter, of any sign
};
