// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"
#include "kit/journal/journal_filter.h"
#include "kit/journal/notification_service.h"
#include "tests/platform/service_fixture.h"

#include <zepa_platform/popups.h>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::HasSubstr;

/// A client on a private session bus, with a notification service that does what the test tells it.
class JournalOnBus : public ServiceTest, protected JournalClient
{
protected:
    /// Both bases have one.
    using JournalClient::post;

    /// A service that the client has heard of: what it says at once is not the news of a moment ago.
    std::unique_ptr<ServiceProcess> startKnownService()
    {
        auto service = startService();
        EXPECT_TRUE(waitFor([] { return zepaPopupService() == ZepaPopupService::There; }));
        return service;
    }

    bool becomes(Verdict wanted)
    {
        return waitFor([this, wanted] { return verdict() == wanted; });
    }
};

TEST_F(JournalOnBus, SaysThatThereIsNoService)
{
    zepa::waitForNotificationService();
    post(m_received);
    EXPECT_EQ(verdict(), Verdict::NoService);
    EXPECT_THAT(why(), HasSubstr("no notification service"));
}

TEST_F(JournalOnBus, SaysThatAPopUpWithoutAnActionWasHandedOver)
{
    const auto service = startKnownService();
    post(m_received);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(verdict(), Verdict::PopupSent);
    EXPECT_THAT(why(), HasSubstr("nobody tells"));
}

TEST_F(JournalOnBus, SaysThatAPopUpWaitsAndThenThatItWasClicked)
{
    const auto service = startKnownService();
    zepa::JournalFilter waiting(m_client.journal());
    waiting.setVerdict(Verdict::PopupWaiting);
    post(m_received, u"Ann"_s, true);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(verdict(), Verdict::PopupWaiting);
    EXPECT_EQ(waiting.rowCount(), 1);
    service->tell(u"click 1"_s);
    ASSERT_TRUE(becomes(Verdict::PopupClicked)) << why();
    EXPECT_THAT(why(), HasSubstr("clicked"));
    EXPECT_EQ(waiting.rowCount(), 0);
}

TEST_F(JournalOnBus, SaysThatAPopUpTimedOut)
{
    const auto service = startKnownService();
    post(m_received, u"Ann"_s, true);
    ASSERT_TRUE(waitForPopups(*service, 1));
    service->tell(u"close 1"_s);
    ASSERT_TRUE(becomes(Verdict::PopupTimedOut)) << why();
    EXPECT_THAT(why(), HasSubstr("without a click"));
}

TEST_F(JournalOnBus, SaysThatTheTypeIsNotRegistered)
{
    const auto service = startKnownService();
    // Somebody registers a list without it; the next type that is registered brings all back.
    m_client.module().getMethods().value(m_popups)->registerNotifications({});
    post(m_received, u"Ann"_s, true);
    EXPECT_EQ(verdict(), Verdict::NotRegistered);
    EXPECT_THAT(why(), HasSubstr("not registered"));
    m_client.module().registerNotification(u"new"_s, u"New"_s, {}, {});
    post(m_received, u"Ben"_s);
    EXPECT_EQ(verdict(), Verdict::PopupSent);
    ASSERT_TRUE(waitForPopups(*service, 1));
    EXPECT_EQ(service->calls().size(), 1);
}

} // namespace
