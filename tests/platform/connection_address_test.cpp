// SPDX-License-Identifier: Apache-2.0
#include "bus/address.h"

#include <gtest/gtest.h>

namespace {

using zepa::bus::configuredAddresses;
using zepa::bus::programOf;
using zepa::bus::splitAddresses;
using Addresses = QList<QByteArray>;

} // namespace

TEST(BusAddresses, AreTakenOneByOneWithoutTheirGuid)
{
    EXPECT_EQ(splitAddresses("unix:path=/a,guid=0123456789abcdef0123456789abcdef;unix:guid=01,abstract=b%20c"),
              (Addresses{"unix:path=/a", "unix:abstract=b%20c"}));
}

TEST(BusAddresses, AreLeftOutWhenNobodyCouldConnectWithoutWaiting)
{
    EXPECT_EQ(splitAddresses("tcp:host=bus.example,port=1;nonce-tcp:host=127.0.0.1,port=1,noncefile=/a;launchd:env=A;"
                             "nonsense;;tcp:port=1"),
              Addresses{});
}

TEST(BusAddresses, MayBeNumericHosts)
{
    EXPECT_EQ(splitAddresses("tcp:host=127.0.0.1,port=1;tcp:host=localhost,port=2,family=ipv4;"
                             "tcp:host=localhost,port=3,family=ipv6;tcp:host=%3a%3a1,port=4"),
              (Addresses{"tcp:host=127.0.0.1,port=1", "tcp:host=127.0.0.1,port=2,family=ipv4",
                         "tcp:host=::1,port=3,family=ipv6", "tcp:host=%3a%3a1,port=4"}));
}

TEST(BusAddresses, MeanTheRunTimeFolderWithoutAnyAndForThoseThatSaySo)
{
    qputenv("XDG_RUNTIME_DIR", "/run/~a b;c");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    const Addresses expected{"unix:path=/run/%7Ea%20b%3Bc/bus"};
    EXPECT_EQ(configuredAddresses(), expected);
    EXPECT_EQ(splitAddresses("autolaunch:"), expected);
    EXPECT_EQ(splitAddresses("unix:runtime=yes"), expected);
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(configuredAddresses(), Addresses{});
}

TEST(BusAddresses, NameProgramsWithTheirArguments)
{
    EXPECT_EQ(programOf("unixexec:path=/bin/a%20b,argv1=x,argv2=%2c"), (Addresses{"/bin/a b", "/bin/a b", "x", ","}));
    EXPECT_EQ(programOf("unixexec:path=/a,argv0=b"), (Addresses{"/a", "b"}));
    EXPECT_EQ(programOf("unixexec:argv0=b"), Addresses{});
    EXPECT_EQ(programOf("unixexec:path=/a,argv1=%4"), Addresses{});
    EXPECT_EQ(programOf("unix:path=/a"), Addresses{});
}
