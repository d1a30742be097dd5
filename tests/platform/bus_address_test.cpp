// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_address.h"

#include <gtest/gtest.h>

using zepa::bus::BusAddress;
using zepa::bus::localAddresses;
using zepa::bus::sessionBusAddresses;

namespace {

QList<QByteArray> socketNames(const QList<BusAddress>& addresses)
{
    QList<QByteArray> names;
    for (const BusAddress& address : addresses)
        names.append(address.socketName);
    return names;
}

using Names = QList<QByteArray>;

} // namespace

TEST(BusAddress, IsThePathOrTheAbstractNameOfALocalSocket)
{
    EXPECT_EQ(socketNames(localAddresses(QStringLiteral("unix:path=/run/bus"))), Names{"/run/bus"});
    EXPECT_EQ(socketNames(localAddresses(QStringLiteral("unix:abstract=bus,guid=12"))),
              (Names{QByteArray("\0bus", 4)}));
}

TEST(BusAddress, KeepsEachAddressAsItWasWrittenAndInItsPlace)
{
    const QList<BusAddress> addresses =
        localAddresses(QStringLiteral("unix:guid=1,path=/a%20b;tcp:host=localhost,port=1;;unix:path=/c"));
    ASSERT_EQ(addresses.size(), 2);
    EXPECT_EQ(addresses[0], (BusAddress{QStringLiteral("unix:guid=1,path=/a%20b"), "/a b"}));
    EXPECT_EQ(addresses[1], (BusAddress{QStringLiteral("unix:path=/c"), "/c"}));
}

TEST(BusAddress, LeavesOutWhatIsNoLocalSocket)
{
    for (const char* address : {"", ";", "unix", "unix:", "unix:path", "unix:path=", "unix:runtime=no", "/run/bus",
                                "tcp:host=localhost,port=1", "unixexec:path=/bin/true", "launchd:env=X",
                                "unix:path=/a%", "unix:path=/a%2", "unix:path=/a%zz", "unixx:path=/a"})
        EXPECT_TRUE(localAddresses(QString::fromLatin1(address)).isEmpty()) << address;
}

TEST(BusAddress, LeavesOutANameThatASocketCannotHave)
{
    const QString longest = QStringLiteral("unix:path=/") + QString(106, u'a');
    EXPECT_EQ(localAddresses(longest).size(), 1);
    EXPECT_TRUE(localAddresses(longest + u'a').isEmpty());
}

TEST(BusAddress, IsTheSocketInTheRunTimeFolderWhenTheEnvironmentNamesNone)
{
    qputenv("XDG_RUNTIME_DIR", "/run/user 7,8");
    for (const char* told : {"", "autolaunch:", "unix:runtime=yes"}) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", told);
        EXPECT_EQ(sessionBusAddresses(),
                  (QList<BusAddress>{{QStringLiteral("unix:path=/run/user%207%2C8/bus"), "/run/user 7,8/bus"}}))
            << told;
    }
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_EQ(socketNames(sessionBusAddresses()), Names{"/run/user 7,8/bus"});
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_TRUE(sessionBusAddresses().isEmpty());
}

TEST(BusAddress, IsWhatTheEnvironmentSays)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/first;unix:abstract=second");
    EXPECT_EQ(socketNames(sessionBusAddresses()), (Names{"/first", QByteArray("\0second", 7)}));
}
