// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "event_loop.h"

#include <zepa_platform/bus.h>

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A folder for sockets, an address in the environment that is the test's, and the connection that is tested.
class ConnectionTest : public testing::Test
{
protected:
    using Connection = zepa::bus::Connection;
    using Message = zepa::bus::Message;
    using State = zepa::bus::Connection::State;

    ConnectionTest()
    {
        setAddress("unix:path=" + socketPath());
        QObject::connect(&connection, &Connection::opened, &connection, [this] { ++openedCount; });
        QObject::connect(&connection, &Connection::closed, &connection, [this] { ++closedCount; });
    }

    static void setAddress(const QByteArray& address) { qputenv("DBUS_SESSION_BUS_ADDRESS", address); }
    QByteArray socketPath(const char* name = "bus") const
    {
        return m_folder.filePath(QLatin1String(name)).toLocal8Bit();
    }
    static bool opens(Connection& opened)
    {
        opened.open();
        return runUntil([&] { return opened.isOpen(); });
    }
    bool opens() { return opens(connection); }
    /// The calls that were made before have been answered, and what was sent before them has arrived.
    static bool roundTrip(Connection& asking)
    {
        bool isBack = false;
        asking.call(asking.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"), &asking,
                    [&](const Message&) { isBack = true; });
        return runUntil([&] { return isBack; });
    }

    QTemporaryDir m_folder;
    Connection connection;
    int openedCount = 0;
    int closedCount = 0;
};
