// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include <QTime>

using namespace Qt::StringLiterals;

// The clock of this program is libfaketime's: the build preloads it, and setClock() sets it for the running process.

namespace {

const QString event = u"event"_s;
const QString title = u"title"_s;

class PostingTime : public ModuleTest
{
protected:
    /// Stops the clock at that time of the second day of March, or of the day after.
    void setClock(const QByteArray& time, bool nextDay = false)
    {
        qputenv("FAKETIME", QByteArray(nextDay ? "2024-03-03 " : "2024-03-02 ") + time);
        const QTime expected = QTime::fromString(QString::fromLatin1(time.left(8)), u"HH:mm:ss"_s);
        ASSERT_EQ(QTime::currentTime().hour(), expected.hour()) << "libfaketime is not at work (package faketime)";
        ASSERT_EQ(QTime::currentTime().second(), expected.second());
    }

    void SetUp() override
    {
        setClock("12:00:00");
        registerType(event);
        addRule(event, probe);
    }

    /// Whether a posting with that title is delivered now.
    bool isDelivered(const QString& withTitle = title)
    {
        const qsizetype before = probe.calls.size();
        post(event, withTitle);
        return probe.calls.size() > before;
    }

    ProbeMethod probe;
};

} // namespace

TEST_F(PostingTime, WithALimitOfZeroDropsARepeatWithinTheSameSecond)
{
    host.repeatLimit = 0;
    EXPECT_TRUE(isDelivered());
    EXPECT_FALSE(isDelivered());
}

TEST_F(PostingTime, WithALimitOfZeroDeliversARepeatOneFullSecondLater)
{
    host.repeatLimit = 0;
    EXPECT_TRUE(isDelivered());
    setClock("12:00:01");
    EXPECT_TRUE(isDelivered());
}

TEST_F(PostingTime, DropsARepeatExactlyTheLimitLater)
{
    EXPECT_TRUE(isDelivered());
    setClock("12:00:05");
    EXPECT_FALSE(isDelivered());
}

TEST_F(PostingTime, DeliversARepeatOneSecondBeyondTheLimit)
{
    EXPECT_TRUE(isDelivered());
    setClock("12:00:06");
    EXPECT_TRUE(isDelivered());
}

TEST_F(PostingTime, MeasuresABurstFromTheFirstAcceptedPosting)
{
    EXPECT_TRUE(isDelivered());
    setClock("12:00:04");
    EXPECT_FALSE(isDelivered());
    setClock("12:00:06");
    EXPECT_TRUE(isDelivered());
}

TEST_F(PostingTime, CountsATruncatedDifferenceAndNotADifferenceOfTruncatedTimes)
{
    host.repeatLimit = 0;
    setClock("12:00:00.750");
    EXPECT_TRUE(isDelivered());
    setClock("12:00:01.250");
    ASSERT_EQ(QTime::currentTime().msec(), 250) << "this libfaketime does not know fractions of a second";
    EXPECT_FALSE(isDelivered());
    setClock("12:00:01.750");
    EXPECT_TRUE(isDelivered());
}

TEST_F(PostingTime, StillBlocksAfterMidnightWhatWasPostedShortlyBefore)
{
    setClock("23:59:50");
    EXPECT_TRUE(isDelivered());
    setClock("00:00:30", true);
    EXPECT_FALSE(isDelivered());
}

TEST_F(PostingTime, BlocksUntilTheClockHasPassedTheTimeOfDayAndTheLimitAgain)
{
    setClock("23:59:50");
    EXPECT_TRUE(isDelivered());
    setClock("23:59:55", true);
    EXPECT_FALSE(isDelivered());
    setClock("23:59:56", true);
    EXPECT_TRUE(isDelivered());
}

TEST_F(PostingTime, ForgetsOldPostingsOfOtherTitlesToo)
{
    EXPECT_TRUE(isDelivered(u"old"_s));
    setClock("12:00:06");
    EXPECT_TRUE(isDelivered(u"new"_s));
    // Were the first one still remembered, a clock that is set back would block it.
    setClock("12:00:00");
    EXPECT_TRUE(isDelivered(u"old"_s));
}

TEST_F(PostingTime, AsksTheClockAnewForEachRememberedPosting)
{
    constexpr int count = 20;
    for (int i = 0; i < count; ++i)
        EXPECT_TRUE(isDelivered(QString::number(i)));
    // A second goes by with each question: the limit of five seconds is passed in the middle of the walk.
    qputenv("FAKETIME", "@2024-03-02 12:00:00 i1.0");
    EXPECT_TRUE(isDelivered());
    setClock("12:00:00");
    int forgotten = 0;
    for (int i = 0; i < count; ++i)
        forgotten += isDelivered(QString::number(i)) ? 1 : 0;
    EXPECT_GT(forgotten, 0);
    EXPECT_LT(forgotten, count);
}

TEST_F(PostingTime, UsesTheLimitOfTheMoment)
{
    EXPECT_TRUE(isDelivered());
    host.repeatLimit = 300;
    setClock("12:05:00");
    EXPECT_FALSE(isDelivered());
    host.repeatLimit = 299;
    EXPECT_TRUE(isDelivered());
}
