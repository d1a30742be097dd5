// SPDX-License-Identifier: Apache-2.0
#include "event_loop.h"
#include "fake_bus.h"

#include <zepa_platform/attention.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(Attention, NeverWaitsForABusThatDoesNotAnswer)
{
    ASSERT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive);
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("bus")).toLocal8Bit();
    // Speaks in this thread only: whoever waits for it waits for ever.
    const FakeBus bus(path);
    ASSERT_TRUE(bus.listens());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
    for (int i = 0; i < 200; ++i)
        zepaRequestAttention();
    ASSERT_TRUE(runUntil([&] { return bus.connectionCount() == 1; }));
    EXPECT_EQ(bus.openCount(), 1) << "it still hopes for an answer";
    ASSERT_TRUE(runUntil([&] { return bus.openCount() == 0; }));
    zepaRequestAttention();
}

TEST(Attention, IsHarmlessWithoutWindowsAndWithoutABus)
{
    ASSERT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
    zepaRequestAttention();
    zepaRequestAttention();
    QCoreApplication::processEvents();
}
