// SPDX-License-Identifier: Apache-2.0
#include "core/local_clock.h"

#include <QTime>
#include <gtest/gtest.h>

#include <ctime>

// The clock of this program is libfaketime's: see posting_time_test.cpp.

namespace {

/// Stops the clock at that time of the zone.
void setClock(const QByteArray& zone, const QByteArray& time)
{
    qputenv("TZ", zone);
    tzset();
    qputenv("FAKETIME", time);
}

int systemsTime()
{
    return QTime::currentTime().msecsSinceStartOfDay();
}

} // namespace

TEST(LocalClock, SaysWhatTheSystemSaysInEveryZone)
{
    for (const char* zone : {"UTC", "Europe/Berlin", "America/St_Johns", "Asia/Kathmandu", "Pacific/Kiritimati"}) {
        setClock(zone, "2024-07-02 23:59:50");
        LocalClock clock;
        EXPECT_EQ(clock.now(), systemsTime()) << zone;
        EXPECT_EQ(QTime::fromMSecsSinceStartOfDay(clock.now()).second(), 50) << zone;
    }
}

TEST(LocalClock, GoesOnAfterMidnight)
{
    setClock("America/New_York", "2024-03-02 23:59:59");
    LocalClock clock;
    setClock("America/New_York", "2024-03-03 00:00:01");
    EXPECT_EQ(clock.now(), 1000);
}

TEST(LocalClock, FollowsTheClocksWhenTheyChange)
{
    setClock("Europe/Berlin", "2024-03-31 01:59:59");
    LocalClock clock;
    EXPECT_EQ(QTime::fromMSecsSinceStartOfDay(clock.now()).hour(), 1);
    setClock("Europe/Berlin", "2024-03-31 03:00:00");
    EXPECT_EQ(QTime::fromMSecsSinceStartOfDay(clock.now()).hour(), 3);
    EXPECT_EQ(clock.now(), systemsTime());
}

TEST(LocalClock, KnowsTheTimesBefore1970)
{
    setClock("UTC", "1969-07-20 20:17:40");
    LocalClock clock;
    EXPECT_EQ(clock.now(), systemsTime());
}
