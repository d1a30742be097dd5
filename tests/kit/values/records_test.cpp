// SPDX-License-Identifier: Apache-2.0
#include "host/arg.h"
#include "host/buddy.h"
#include "host/plugin_action.h"

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const ZepaBuddy anna(u"anna@example.org"_s, u"Anna"_s, ZepaBuddy::Contact);

TEST(Buddy, IsNobodyAtFirst)
{
    const ZepaBuddy nobody;
    EXPECT_TRUE(nobody.getId().isNull());
    EXPECT_TRUE(nobody.getName().isNull());
    EXPECT_EQ(nobody.getType(), ZepaBuddy::Unknown);
}

TEST(Buddy, KeepsWhatItWasMadeWith)
{
    const ZepaBuddy copy = anna;
    EXPECT_EQ(copy.getId(), u"anna@example.org"_s);
    EXPECT_EQ(copy.getName(), u"Anna"_s);
    EXPECT_EQ(copy.getType(), 1);
    EXPECT_EQ(ZepaBuddy({}, {}, ZepaBuddy::NotOnContactList).getType(), 4);
}

TEST(Buddy, IsNobodyAfterItWasMovedFrom)
{
    ZepaBuddy from = anna;
    const ZepaBuddy to = std::move(from);
    EXPECT_EQ(to.getName(), u"Anna"_s);
    EXPECT_TRUE(from.getName().isNull()); // NOLINT(bugprone-use-after-move): that is what is tested
}

TEST(Arg, HasNoTypeAtFirst)
{
    const ZepaArg arg;
    EXPECT_EQ(arg.getType(), 0);
    EXPECT_TRUE(arg.toText().isNull());
    EXPECT_TRUE(arg.toBuddy().getId().isNull());
}

TEST(Arg, CarriesABuddyUnderType19)
{
    const ZepaArg arg = ZepaArg::fromBuddy(anna);
    EXPECT_EQ(arg.getType(), 19);
    EXPECT_EQ(arg.toBuddy().getId(), anna.getId());
    EXPECT_TRUE(arg.toText().isNull());
}

TEST(Arg, CarriesATextAndThenNobody)
{
    const ZepaArg arg = ZepaArg::fromText(u"hello"_s);
    EXPECT_EQ(arg.getType(), ZepaArg::Text);
    EXPECT_EQ(arg.toText(), u"hello"_s);
    EXPECT_EQ(arg.toBuddy().getType(), ZepaBuddy::Unknown);
}

TEST(PluginAction, IsInvalidWithoutWorkAndThenDoesNothing)
{
    const ZepaPluginAction none;
    EXPECT_FALSE(none.isValid());
    none();
    EXPECT_FALSE(ZepaPluginAction(std::function<void()>()).isValid());
}

TEST(PluginAction, DoesItsWorkAtEachCallOfEachCopy)
{
    int runs = 0;
    const ZepaPluginAction action([&runs] { ++runs; });
    const ZepaPluginAction copy = action; // NOLINT(performance-unnecessary-copy-initialization): a copy is meant
    EXPECT_TRUE(copy.isValid());
    action();
    copy();
    copy();
    EXPECT_EQ(runs, 3);
}

TEST(PluginAction, LetsTheWorkGoWithTheLastCopy)
{
    auto token = std::make_shared<int>(0);
    const std::weak_ptr<int> alive = token;
    std::optional<ZepaPluginAction> first(std::in_place, [token] {});
    std::optional<ZepaPluginAction> second = first;
    token.reset();
    first.reset();
    EXPECT_FALSE(alive.expired());
    second.reset();
    EXPECT_TRUE(alive.expired());
}

TEST(PluginAction, SurvivesWorkThatDestroysIt)
{
    std::optional<ZepaPluginAction> action;
    const auto value = std::make_shared<int>(7);
    int seen = 0;
    action.emplace([&action, &seen, value] {
        action.reset();
        seen = *value;
    });
    (*action)();
    EXPECT_EQ(seen, 7);
    EXPECT_FALSE(action.has_value());
}

} // namespace
