// SPDX-License-Identifier: Apache-2.0
#include "portal/service_choice.h"

#include <QtGlobal>
#include <gtest/gtest.h>

using namespace zepa::portal;

namespace {

constexpr ProcessFacts ordinary{};
constexpr ProcessFacts sandboxed{.wantsPortal = false, .isSandboxed = true};
constexpr NameFacts nothingSaid{};
constexpr NameFacts owned{.isOwnerKnown = true, .hasOwner = true, .isActivatable = std::nullopt};
constexpr NameFacts activatable{.isOwnerKnown = true, .hasOwner = false, .isActivatable = true};
constexpr NameFacts absent{.isOwnerKnown = true, .hasOwner = false, .isActivatable = false};

} // namespace

TEST(ServiceChoice, IsTheNotificationServiceOutsideOfASandboxWhateverTheBusSays)
{
    for (const NameFacts& name : {nothingSaid, owned, activatable, absent})
        EXPECT_EQ(choose(ordinary, name), ServiceChoice::Notifications);
}

TEST(ServiceChoice, IsThePortalWhereItIsWantedWhateverTheBusSays)
{
    for (const NameFacts& name : {nothingSaid, owned, activatable, absent}) {
        EXPECT_EQ(choose({.wantsPortal = true, .isSandboxed = false}, name), ServiceChoice::Portal);
        EXPECT_EQ(choose({.wantsPortal = true, .isSandboxed = true}, name), ServiceChoice::Portal);
    }
}

TEST(ServiceChoice, IsTheNotificationServiceInASandboxThatLetsItThrough)
{
    EXPECT_EQ(choose(sandboxed, owned), ServiceChoice::Notifications);
    EXPECT_EQ(choose(sandboxed, activatable), ServiceChoice::Notifications);
}

TEST(ServiceChoice, IsThePortalInASandboxWithoutANotificationService)
{
    EXPECT_EQ(choose(sandboxed, absent), ServiceChoice::Portal);
}

TEST(ServiceChoice, WaitsInASandboxForWhatTheBusSays)
{
    NameFacts name;
    EXPECT_EQ(choose(sandboxed, name), ServiceChoice::NotKnownYet);
    name.isActivatable = false;
    EXPECT_EQ(choose(sandboxed, name), ServiceChoice::NotKnownYet);
    name = {.isOwnerKnown = true, .hasOwner = false, .isActivatable = std::nullopt};
    EXPECT_EQ(choose(sandboxed, name), ServiceChoice::NotKnownYet);
}

TEST(ServiceChoice, ReadsTheEnvironment)
{
    qunsetenv("SNAP");
    qunsetenv("ZEPA_POPUPS");
    EXPECT_FALSE(ProcessFacts::ofThisProcess().isSandboxed);
    EXPECT_FALSE(ProcessFacts::ofThisProcess().wantsPortal);
    qputenv("SNAP", "/snap/client/1");
    EXPECT_TRUE(ProcessFacts::ofThisProcess().isSandboxed);
    qunsetenv("SNAP");
    qputenv("ZEPA_POPUPS", "portals");
    EXPECT_FALSE(ProcessFacts::ofThisProcess().wantsPortal);
    qputenv("ZEPA_POPUPS", "portal");
    EXPECT_TRUE(ProcessFacts::ofThisProcess().wantsPortal);
    EXPECT_FALSE(ProcessFacts::ofThisProcess().isSandboxed);
    qunsetenv("ZEPA_POPUPS");
}
