// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_probe.h"

#include "event_loop.h"
#include "fake_bus.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <vector>

using zepa::bus::BusAddress;
using zepa::bus::BusProbe;

namespace {

constexpr const char* welcome = "OK 0123456789abcdef0123456789abcdef\r\n";

class BusProbeTest : public testing::Test
{
protected:
    BusProbeTest()
    {
        QObject::connect(&m_probe, &BusProbe::answered, &m_probe,
                         [this](const QString& address) { m_found.push_back(address.toStdString()); });
        QObject::connect(&m_probe, &BusProbe::failed, &m_probe, [this] { m_found.emplace_back("failed"); });
    }

    QByteArray path(const char* name) const { return m_folder.filePath(QLatin1String(name)).toLocal8Bit(); }
    BusAddress address(const char* name) const { return {QString::fromLatin1(name), path(name)}; }
    bool isOver() const { return !m_found.empty(); }

    using Found = std::vector<std::string>;
    BusProbe m_probe;
    Found m_found;

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(BusProbeTest, SaysAtOnceThatNobodyListens)
{
    EXPECT_FALSE(m_probe.start({}));
    EXPECT_FALSE(m_probe.start({address("a"), address("b")}));
    EXPECT_FALSE(m_probe.start({{QStringLiteral("abstract"), QByteArray("\0zepa-nobody", 12)}}));
    EXPECT_EQ(m_found, Found{});
}

TEST_F(BusProbeTest, FindsABusByTheFirstLineOfTheHandshakeAndHangsUp)
{
    const FakeBus bus(path("bus"), FakeBus::Manner::Answers, {welcome});
    ASSERT_TRUE(m_probe.start({address("bus")}));
    EXPECT_EQ(m_found, Found{}) << "answers come from the event loop only";
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"bus"});
    ASSERT_TRUE(runUntil([&] { return bus.openCount() == 0; }));
    EXPECT_EQ(bus.connectionCount(), 1);
    const QByteArray user = QByteArray::number(geteuid()).toHex();
    EXPECT_EQ(bus.heard(), QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
}

TEST_F(BusProbeTest, FindsABusWithAnAbstractName)
{
    const QByteArray name = QByteArray(1, '\0') + path("bus");
    const FakeBus bus(name, FakeBus::Manner::Answers, {welcome});
    ASSERT_TRUE(m_probe.start({{QStringLiteral("abstract"), name}}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"abstract"});
}

TEST_F(BusProbeTest, TakesARefusalForAnAnswer)
{
    const FakeBus bus(path("bus"), FakeBus::Manner::Answers, {"REJECTED DBUS_COOKIE_SHA1\r\n"});
    ASSERT_TRUE(m_probe.start({address("bus")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"bus"});
}

TEST_F(BusProbeTest, TakesTheFirstBusThatAnswers)
{
    const FakeBus rude(path("rude"), FakeBus::Manner::HangsUp);
    const FakeBus first(path("first"), FakeBus::Manner::Answers, {welcome});
    const FakeBus second(path("second"), FakeBus::Manner::Answers, {welcome});
    ASSERT_TRUE(m_probe.start({address("nobody"), address("rude"), address("first"), address("second")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"first"});
    EXPECT_EQ(rude.connectionCount(), 1);
    EXPECT_EQ(second.connectionCount(), 0);
}

TEST_F(BusProbeTest, FailsWhenEverybodyHangsUp)
{
    const FakeBus rude(path("rude"), FakeBus::Manner::HangsUp);
    ASSERT_TRUE(m_probe.start({address("rude"), address("nobody")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"failed"});
}

TEST_F(BusProbeTest, GoesOnToTheNextWhenOneKeepsSilent)
{
    const FakeBus silent(path("silent"));
    const FakeBus mumbling(path("mumbling"), FakeBus::Manner::Answers, {"no line"});
    const FakeBus bus(path("bus"), FakeBus::Manner::Answers, {welcome});
    ASSERT_TRUE(m_probe.start({address("silent"), address("mumbling"), address("bus")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"bus"});
    EXPECT_EQ(silent.openCount(), 0);
    EXPECT_EQ(mumbling.openCount(), 0);
}

TEST_F(BusProbeTest, GivesUpABusThatKeepsSilent)
{
    const FakeBus silent(path("silent"));
    ASSERT_TRUE(m_probe.start({address("silent")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"failed"});
    EXPECT_EQ(silent.connectionCount(), 1);
    ASSERT_TRUE(runUntil([&] { return silent.openCount() == 0; }));
}

TEST_F(BusProbeTest, DoesNotWaitWhereTheQueueIsFull)
{
    FakeBus stuck(path("stuck"));
    stuck.stopAccepting();
    std::vector<std::unique_ptr<Visitor>> queue;
    do
        queue.push_back(std::make_unique<Visitor>(path("stuck")));
    while (queue.back()->isIn());
    ASSERT_GT(queue.size(), 1U);
    EXPECT_FALSE(m_probe.start({address("stuck")}));
}

TEST_F(BusProbeTest, GivesUpAnEarlierAttemptForANewOne)
{
    const FakeBus silent(path("silent"));
    const FakeBus bus(path("bus"), FakeBus::Manner::Answers, {welcome});
    ASSERT_TRUE(m_probe.start({address("silent")}));
    ASSERT_TRUE(m_probe.start({address("bus")}));
    ASSERT_TRUE(runUntil([&] { return isOver(); }));
    EXPECT_EQ(m_found, Found{"bus"});
    ASSERT_TRUE(runUntil([&] { return silent.connectionCount() == 1 && silent.openCount() == 0; }));
}
