// SPDX-License-Identifier: Apache-2.0
#include "instance_fixture.h"

#include <QFile>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Starts without a verb, and who counts as the first.
class InstanceStartTest : public InstanceTest
{};

TEST_F(InstanceStartTest, LeavesOneOfSeveralThatStartAtOnce)
{
    std::vector<std::unique_ptr<QProcess>> started;
    for (int i = 0; i < 4; ++i)
        started.push_back(startWindow());
    const auto running = [&started] {
        return std::count_if(started.cbegin(), started.cend(),
                             [](const auto& process) { return process->state() == QProcess::Running; });
    };
    EXPECT_TRUE(waitFor([&running] { return running() == 1; }));
    EXPECT_TRUE(isClientThere());
    for (const auto& process : started)
        EXPECT_TRUE(process->state() == QProcess::Running || process->exitCode() == 0)
            << process->readAllStandardError().constData();
}

TEST_F(InstanceStartTest, TakesOverWhenTheFirstIsGone)
{
    startFirst();
    endFirst();
    startFirst();
    EXPECT_EQ(run({u"types"_s}).code, 0);
}

TEST_F(InstanceStartTest, SaysThatTheFirstDoesNotAnswer)
{
    startFirst();
    ::kill(static_cast<pid_t>(first().processId()), SIGSTOP);
    const auto second = startWindow();
    const Outcome outcome = finish(*second);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"is not responding"_s)) << outcome.err.toStdString();
}

TEST_F(InstanceStartTest, IsAnotherClientWithOtherSettings)
{
    startFirst();
    const auto other = startWindow(u"other"_s);
    EXPECT_TRUE(waitFor([this] { return isClientThere(u"other"_s); }));
    EXPECT_EQ(first().state(), QProcess::Running);
    EXPECT_EQ(other->state(), QProcess::Running);
}

TEST_F(InstanceStartTest, IsTheSameClientUnderAnotherNameOfTheFolder)
{
    startFirst();
    ASSERT_TRUE(QFile::link(inFolder(u"settings"_s), inFolder(u"link"_s)));
    const auto second = startWindow(u"link/../link/"_s);
    EXPECT_EQ(finish(*second).code, 0);
}

TEST_F(InstanceStartTest, CountsNoCommandThatRunsAloneAsTheFirst)
{
    const auto service = startService();
    const auto waiting = start({u"post"_s, u"message_received"_s, u"--title"_s, u"Anna"_s, u"--wait"_s});
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_FALSE(isClientThere());
    startFirst();
    service->tell(u"click 1"_s);
    EXPECT_EQ(finish(*waiting).code, 0);
}

} // namespace
