// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/quiet_watch.h"

#include "connection_fixture.h"
#include "freedesktop/notification_service.h"
#include "freedesktop/scripted_names.h"
#include "scripted_bus.h"

#include <QMap>

#include <optional>
#include <string>

namespace {

using zepa::freedesktop::NotificationService;

constexpr const char* notificationsName = "org.freedesktop.Notifications";
constexpr const char* notificationsPath = "/org/freedesktop/Notifications";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* controlCentreName = "org.erikreider.swaync.cc";
constexpr const char* controlCentrePath = "/org/erikreider/swaync/cc";

void reply(sd_bus_message* call, const char* types, int value)
{
    sd_bus_message* message = nullptr;
    sd_bus_message_new_method_return(call, &message);
    sd_bus_message_set_sender(message, serviceOwner);
    if (qstrcmp(types, "b") == 0)
        sd_bus_message_append(message, "b", value);
    else if (qstrcmp(types, "v") == 0)
        sd_bus_message_append(message, "v", "b", value);
    else
        sd_bus_message_append(message, "v", "v", "b", value);
    sd_bus_send(sd_bus_message_get_bus(call), message, nullptr);
    sd_bus_message_unref(message);
}

/// A bus with the names and properties that the test says, all of one connection.
class QuietWatchTest : public ConnectionTest
{
protected:
    QuietWatchTest() : bus(socketPath()), notifications(connection)
    {
        qunsetenv("XDG_CURRENT_DESKTOP");
        bus.answer("GetNameOwner", [this](sd_bus_message* call) {
            const char* name = nullptr;
            sd_bus_message_read_basic(call, 's', &name);
            if (owned.contains(QString::fromLatin1(name)))
                ScriptedBus::replyFrom(busItself, call, serviceOwner);
            else
                ScriptedBus::refuse(call);
        });
        bus.answer("Get", [this](sd_bus_message* call) {
            const char* interface = nullptr;
            const char* name = nullptr;
            sd_bus_message_read(call, "ss", &interface, &name);
            hasAutoStart = hasAutoStart || sd_bus_message_get_auto_start(call) > 0;
            const QString property = QString::fromLatin1(interface) + u'.' + QString::fromLatin1(name);
            if (properties.contains(property))
                reply(call, "v", properties[property] ? 1 : 0);
            else
                ScriptedBus::refuse(call);
        });
    }

    bool becomes(ZepaDoNotDisturb state)
    {
        return runUntil([&] { return notifications.doNotDisturb() == state; });
    }
    /// A change of one property, in anybody's name.
    void change(const char* sender, const char* interface, const char* name, bool value)
    {
        bus.signalFrom(sender, notificationsPath, propertiesInterface, "PropertiesChanged", "sa{sv}as", interface, 2,
                       "Other", "s", "text", name, "b", value ? 1 : 0, 0);
    }

    ScriptedBus bus;
    QStringList owned{QString::fromLatin1(notificationsName)};
    QMap<QString, bool> properties;
    bool hasAutoStart = false;
    NotificationService notifications;
};

struct Place
{
    const char* interface;
    const char* property;
};

class QuietPropertyTest : public QuietWatchTest, public testing::WithParamInterface<Place>
{};

} // namespace

TEST_F(QuietWatchTest, AsksNobodyUntilSomebodyAsksIt)
{
    notifications.state();
    ASSERT_TRUE(runUntil([&] { return notifications.state() == ZepaPopupService::There; }));
    ASSERT_TRUE(roundTrip(connection));
    const qsizetype matches = bus.callsOf("AddMatch").size();
    EXPECT_TRUE(bus.callsOf("Get").isEmpty());
    EXPECT_EQ(notifications.doNotDisturb(), ZepaDoNotDisturb::NotTold);
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("Get").size() == 3; }));
    EXPECT_GT(bus.callsOf("AddMatch").size(), matches);
    notifications.doNotDisturb();
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(bus.callsOf("Get").size(), 3) << "asked once";
    EXPECT_FALSE(hasAutoStart) << "a question would start a service";
    EXPECT_EQ(notifications.doNotDisturb(), ZepaDoNotDisturb::NotTold) << "all were refused";
}

TEST_P(QuietPropertyTest, IsReadAndFollowed)
{
    const auto& [interface, name] = GetParam();
    properties[QString::fromLatin1(interface) + u'.' + QString::fromLatin1(name)] = true;
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::On));
    change(serviceOwner, interface, name, false);
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::Off));
    change(stranger, interface, name, true);
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(notifications.doNotDisturb(), ZepaDoNotDisturb::Off) << "a stranger's word";
    // Invalidated, it is asked for again.
    bus.signalFrom(serviceOwner, notificationsPath, propertiesInterface, "PropertiesChanged", "sa{sv}as", interface, 0,
                   1, name);
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::On));
    bus.signalFrom(busItself, "/org/freedesktop/DBus", busItself, "NameOwnerChanged", "sss", notificationsName,
                   serviceOwner, "");
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::NotTold));
}

INSTANTIATE_TEST_SUITE_P(All, QuietPropertyTest,
                         testing::Values(Place{notificationsName, "Inhibited"},
                                         Place{"org.dunstproject.cmd0", "paused"}, Place{notificationsName, "Dnd"}),
                         [](const auto& tested) { return std::string(tested.param.property); });

TEST_F(QuietWatchTest, FollowsTheControlCentre)
{
    owned.append(QString::fromLatin1(controlCentreName));
    bus.answer("GetDnd", [](sd_bus_message* call) { reply(call, "b", 1); });
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::On));
    bus.signalFrom(serviceOwner, controlCentrePath, controlCentreName, "Subscribe", "ubb", 3, 0, 1);
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::Off));
    bus.signalFrom(serviceOwner, controlCentrePath, controlCentreName, "SubscribeV2", "ubbb", 3, 1, 0, 0);
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::On));
    bus.signalFrom(busItself, "/org/freedesktop/DBus", busItself, "NameOwnerChanged", "sss", controlCentreName,
                   serviceOwner, "");
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::NotTold));
}

TEST_F(QuietWatchTest, ReadsTheSettingOfGnome)
{
    owned.append(QString::fromLatin1(portalName));
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    bus.answer("Read", [](sd_bus_message* call) { reply(call, "vv", 0); });
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::On));
    const auto change = [this](const char* key, int value) {
        bus.signalFrom(serviceOwner, portalPath, "org.freedesktop.portal.Settings", "SettingChanged", "ssv",
                       "org.gnome.desktop.notifications", key, "b", value);
    };
    change("show-in-lock-screen", 1);
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_EQ(notifications.doNotDisturb(), ZepaDoNotDisturb::On) << "another setting";
    change("show-banners", 1);
    ASSERT_TRUE(becomes(ZepaDoNotDisturb::Off));
}

TEST_F(QuietWatchTest, AsksThePortalOnlyOnGnomeAndOnlyWhereItRuns)
{
    owned.append(QString::fromLatin1(portalName));
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    notifications.doNotDisturb();
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("Get").size() == 3; }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(bus.callsOf("Read").isEmpty());

    qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    owned.removeLast();
    NotificationService another(connection);
    another.doNotDisturb();
    ASSERT_TRUE(runUntil([&] { return bus.callsOf("GetNameOwner").contains(QString::fromLatin1(portalName)); }));
    ASSERT_TRUE(roundTrip(connection));
    EXPECT_TRUE(bus.callsOf("Read").isEmpty());
}
