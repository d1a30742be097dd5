// SPDX-License-Identifier: Apache-2.0
#include "bus_daemon.h"
#include "event_loop.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <string>

namespace {

/// How programs with a bus begin and end.
class ProgramTestBase : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!daemon.start())
            GTEST_SKIP() << "no bus is installed";
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address());
    }

    static int exitCode(const QString& file, const QString& argument)
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        program.start(file, {argument});
        EXPECT_TRUE(runUntil([&] { return program.state() == QProcess::NotRunning; }));
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }

    BusDaemon daemon;
};

class UnloadingTest : public ProgramTestBase
{};

class ProgramTest : public ProgramTestBase, public testing::WithParamInterface<const char*>
{};

} // namespace

TEST_P(ProgramTest, EndsInOrder)
{
    EXPECT_EQ(exitCode(QString::fromUtf8(BUS_PROGRAM), QString::fromLatin1(GetParam())), 0);
}

INSTANTIATE_TEST_SUITE_P(All, ProgramTest, testing::Values("end", "exit", "again", "fork"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_F(UnloadingTest, LeavesWhatHandlesEventsWhereItIs)
{
    EXPECT_EQ(exitCode(QString::fromUtf8(BUS_UNLOADER), QString::fromUtf8(PLATFORM_LIBRARY)), 0);
}
