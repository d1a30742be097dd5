// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_lock.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::RuleLock;

class RuleLockTest : public testing::Test
{
protected:
    RuleLockTest() { QDir().mkpath(folder()); }

    /// Not right in the system's folder for temporary files: the folder above is locked, too.
    QString folder() const { return m_folder.filePath(u"rules"_s); }

private:
    QTemporaryDir m_folder;
};

TEST_F(RuleLockTest, IsHadByOneAtATimeAndWritesNothing)
{
    std::optional<RuleLock> first(std::in_place, folder());
    RuleLock second(folder());
    EXPECT_TRUE(first->tryNow());
    EXPECT_FALSE(second.tryNow());
    EXPECT_FALSE(second.isHeld());
    first.reset();
    EXPECT_TRUE(second.tryNow());
    EXPECT_TRUE(second.isHeld());
    EXPECT_TRUE(QDir(folder()).isEmpty());
}

TEST_F(RuleLockTest, GoesWithTheProcessThatHasIt)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        RuleLock lock(folder());
        const char answer = lock.tryNow() ? 'y' : 'n';
        if (write(ready[1], &answer, 1) == 1)
            pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    RuleLock lock(folder());
    EXPECT_FALSE(lock.tryNow());
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(lock.wait());
    close(ready[0]);
    close(ready[1]);
}

TEST_F(RuleLockTest, IsNotPossibleWithoutAFolder)
{
    RuleLock lock(folder() + u"/nowhere"_s);
    EXPECT_FALSE(lock.isPossible());
    EXPECT_FALSE(lock.tryNow());
    EXPECT_FALSE(lock.wait());
}

TEST_F(RuleLockTest, LeavesNobodyBehindWhoGaveUp)
{
    std::optional<RuleLock> first(std::in_place, folder());
    ASSERT_TRUE(first->tryNow());
    {
        RuleLock impatient(folder());
        impatient.beginWaiting();
        EXPECT_FALSE(impatient.isHeld());
    }
    first.reset();
    RuleLock next(folder());
    EXPECT_TRUE(next.wait());
}

TEST_F(RuleLockTest, CallsAtOnceWhenItIsFreeAndLaterWhenItIsNot)
{
    QObject context;
    int calls = 0;
    zepa::whenLocked(folder(), &context, [&calls](const RuleLock& lock) { calls += lock.isHeld() ? 1 : 100; });
    EXPECT_EQ(calls, 1);

    std::optional<RuleLock> first(std::in_place, folder());
    ASSERT_TRUE(first->tryNow());
    QEventLoop loop;
    zepa::whenLocked(folder(), &context, [&](const RuleLock& lock) {
        calls += lock.isHeld() ? 1 : 100;
        loop.quit();
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    first.reset();
    loop.exec();
    EXPECT_EQ(calls, 2);
    // The lock is free again when the call is over.
    EXPECT_TRUE(RuleLock(folder()).wait());
}

TEST_F(RuleLockTest, CallsWithoutItWhenItTakesTooLongAndNeverForWhoIsGone)
{
    RuleLock first(folder());
    ASSERT_TRUE(first.tryNow());
    QObject context;
    QEventLoop loop;
    int calls = 0;
    {
        QObject gone;
        zepa::whenLocked(folder(), &gone, [&calls](const RuleLock&) { calls += 100; });
    }
    zepa::whenLocked(folder(), &context, [&](const RuleLock& lock) {
        calls += lock.isHeld() ? 100 : 1;
        loop.quit();
    });
    loop.exec();
    EXPECT_EQ(calls, 1);
}

} // namespace
