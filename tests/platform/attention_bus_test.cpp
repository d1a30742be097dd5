// SPDX-License-Identifier: Apache-2.0
#include "event_loop.h"
#include "fake_bus.h"
#include "scripted_bus.h"

#include <zepa_platform/attention.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Attention, NeverWaitsForABusThatDoesNotAnswer)
{
    ASSERT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive);
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(u"bus"_s).toLocal8Bit();
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

TEST(Attention, TellsDocksOnlyTheLastStateOfTheTimeBeforeTheBusAnswered)
{
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(u"bus"_s).toLocal8Bit();
    ScriptedBus bus(path);
    bus.answer("Hello", [&bus](sd_bus_message* call) { bus.keep(call); });
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
    // After a failed attempt the next one is made by itself.
    ASSERT_TRUE(runUntil([&] {
        zepaRequestAttention();
        return !bus.kept().empty();
    }));
    zepaRequestAttention();
    ScriptedBus::replyFrom("org.freedesktop.DBus", bus.kept().front().get(), ":1.7");
    const QStringList once{u"application://attention_test.desktop"_s};
    ASSERT_TRUE(runUntil([&] { return !bus.callsOf("Update").isEmpty(); }));
    EXPECT_EQ(bus.callsOf("Update"), once);
    zepaRequestAttention();
    EXPECT_TRUE(runUntil([&] { return bus.callsOf("Update").size() == 2; })) << "an open bus hears each";
}
