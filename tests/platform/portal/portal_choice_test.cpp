// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/held_postings.h"
#include "growl/popup_service.h"
#include "service_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::growl::PopupService;
using zepa::growl::Ticket;

/// Which service is chosen, by the one that a posting comes to. What the fixture registers uses the notification
/// service, and posts nothing.
class PortalChoiceTest : public ServiceTest
{
protected:
    ~PortalChoiceTest() override
    {
        qunsetenv("SNAP");
        qunsetenv("ZEPA_POPUPS");
    }

    void make()
    {
        service = zepa::growl::makePopupService();
        QObject::connect(service.get(), &PopupService::shown, service.get(),
                         [this](Ticket ticket) { shown.push_back(ticket); });
        QObject::connect(service.get(), &PopupService::notShown, service.get(),
                         [this](Ticket ticket) { notShown.push_back(ticket); });
    }
    std::unique_ptr<ServiceProcess> startPortal() { return startService({u"portal"_s}); }
    static qsizetype shownBy(ServiceProcess& process)
    {
        return process.calls().size() + process.calls(u"AddNotification"_s).size();
    }
    static bool isThere(PopupService& service) { return service.state() == ZepaPopupService::There; }

    std::unique_ptr<PopupService> service;
    std::vector<Ticket> shown;
    std::vector<Ticket> notShown;
};

} // namespace

TEST_F(PortalChoiceTest, IsTheNotificationServiceOutsideOfASandbox)
{
    const auto notifications = startService();
    const auto portal = startPortal();
    make();
    service->post({}, 1);
    ASSERT_TRUE(waitFor([&] { return shown.size() == 1; }));
    EXPECT_TRUE(waitFor([&] { return shownBy(*notifications) == 1; }));
    EXPECT_EQ(shownBy(*portal), 0);
}

TEST_F(PortalChoiceTest, IsThePortalWhereTheVariableSaysSo)
{
    const auto notifications = startService();
    const auto portal = startPortal();
    qputenv("ZEPA_POPUPS", "portal");
    make();
    service->state();
    service->post({}, 1);
    ASSERT_TRUE(waitFor([&] { return shown.size() == 1; }));
    EXPECT_EQ(shownBy(*notifications), 0);
    EXPECT_TRUE(waitFor([&] { return shownBy(*portal) == 1; }));
}

TEST_F(PortalChoiceTest, IsTheNotificationServiceInASandboxThatLetsItThrough)
{
    const auto notifications = startService();
    const auto portal = startPortal();
    qputenv("SNAP", "/snap/client/1");
    make();
    // Held until the bus has spoken, and in order.
    service->post({}, 1);
    service->post({}, 2);
    EXPECT_TRUE(shown.empty());
    ASSERT_TRUE(waitFor([&] { return shown.size() == 2; }));
    EXPECT_THAT(shown, testing::ElementsAre(1U, 2U));
    EXPECT_TRUE(waitFor([&] { return shownBy(*notifications) == 2; }));
    EXPECT_EQ(shownBy(*portal), 0);
}

TEST_F(PortalChoiceTest, IsTheNotificationServiceThatTheBusCanStart)
{
    makeActivatable({});
    const auto portal = startPortal();
    qputenv("SNAP", "/snap/client/1");
    make();
    service->post({}, 1);
    ASSERT_TRUE(waitFor([&] { return shown.size() == 1; }));
    EXPECT_EQ(shownBy(*portal), 0);
}

TEST_F(PortalChoiceTest, IsThePortalInASandboxWithoutANotificationService)
{
    const auto portal = startPortal();
    qputenv("SNAP", "/snap/client/1");
    make();
    EXPECT_EQ(service->state(), ZepaPopupService::NotKnownYet);
    service->post({}, 1);
    service->post({}, 2);
    ASSERT_TRUE(waitFor([&] { return shown.size() == 2; }));
    EXPECT_THAT(shown, testing::ElementsAre(1U, 2U));
    EXPECT_TRUE(waitFor([&] { return shownBy(*portal) == 2; }));
    EXPECT_TRUE(isThere(*service));
}

TEST_F(PortalChoiceTest, HoldsAThousandPostingsWhileABusKeepsSilent)
{
    stopBus();
    qputenv("SNAP", "/snap/client/1");
    make();
    service->state();
    constexpr Ticket limit = zepa::freedesktop::HeldPostings::countLimit;
    for (Ticket ticket = 1; ticket <= limit + 2; ++ticket)
        service->post({}, ticket);
    EXPECT_THAT(notShown, testing::ElementsAre(1U, 2U));
    ASSERT_TRUE(waitFor([&] { return notShown.size() == limit + 2; }));
    EXPECT_TRUE(shown.empty());
}

TEST_F(PortalChoiceTest, IsMadeWhenTheBusComes)
{
    killBus();
    qputenv("SNAP", "/snap/client/1");
    make();
    ASSERT_TRUE(waitFor([&] { return service->state() == ZepaPopupService::NoBus; }));
    service->post({}, 1);
    EXPECT_THAT(notShown, testing::ElementsAre(1U));
    startBus();
    const auto portal = startPortal();
    ASSERT_TRUE(waitFor([&] { return isThere(*service); }));
    service->post({}, 2);
    ASSERT_TRUE(waitFor([&] { return shown.size() == 1; }));
    EXPECT_TRUE(waitFor([&] { return shownBy(*portal) == 1; }));
}
