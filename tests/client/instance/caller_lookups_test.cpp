// SPDX-License-Identifier: Apache-2.0
#include "client/instance/caller_lookups.h"

#include <QEventLoop>

#include <gtest/gtest.h>

#include <memory>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace {

using zepa::instance::CallerLookups;
using namespace std::chrono_literals;

/// Asks and lets the event loop run until there is an answer.
QString answerTo(CallerLookups& lookups, std::function<QString()> question)
{
    QEventLoop loop;
    QString answer;
    bool isThere = false;
    lookups.ask(std::move(question), [&](const QString& problem) {
        answer = problem;
        isThere = true;
        loop.quit();
    });
    if (!isThere)
        loop.exec();
    return answer;
}

/// A file system that does not answer, until it is let go.
using Stuck = std::shared_ptr<std::counting_semaphore<>>;

std::function<QString()> stuckOn(const Stuck& stuck)
{
    return [stuck] {
        stuck->acquire();
        return QString();
    };
}

TEST(CallerLookupsTest, GivesTheAnswer)
{
    CallerLookups lookups(1h);
    EXPECT_EQ(answerTo(lookups, [] { return u"no"_s; }), u"no"_s);
    EXPECT_EQ(answerTo(lookups, [] { return QString(); }), QString());
}

TEST(CallerLookupsTest, WaitsForNobodyWhoDoesNotAnswer)
{
    const auto stuck = std::make_shared<std::counting_semaphore<>>(0);
    CallerLookups lookups(1ms);
    EXPECT_TRUE(answerTo(lookups, stuckOn(stuck)).contains(u"its file system does not respond"_s));
    stuck->release();
}

TEST(CallerLookupsTest, StartsNoThreadsWithoutEnd)
{
    const auto stuck = std::make_shared<std::counting_semaphore<>>(0);
    CallerLookups lookups(1h);
    int answers = 0;
    for (int i = 0; i < CallerLookups::mostAtOnce; ++i)
        lookups.ask(stuckOn(stuck), [&answers](const QString&) { ++answers; });
    EXPECT_TRUE(answerTo(lookups, stuckOn(stuck)).contains(u"too many"_s));
    EXPECT_EQ(answers, 0);
    stuck->release(CallerLookups::mostAtOnce);
    // Their answers come, and there is room again.
    while (answers < CallerLookups::mostAtOnce)
        QEventLoop().processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(answerTo(lookups, [] { return u"no"_s; }), u"no"_s);
}

TEST(CallerLookupsTest, TellsNobodyWhenItIsGone)
{
    const auto stuck = std::make_shared<std::counting_semaphore<>>(0);
    bool isTold = false;
    {
        CallerLookups lookups(1h);
        lookups.ask(stuckOn(stuck), [&isTold](const QString&) { isTold = true; });
    }
    stuck->release();
    CallerLookups others(1h);
    answerTo(others, [] { return QString(); });
    EXPECT_FALSE(isTold);
}

} // namespace
