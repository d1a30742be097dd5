// SPDX-License-Identifier: Apache-2.0
#include "attention/attention_request.h"
#include "attention/launcher_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct RecordedEffects : attention::Effects
{
    void ask() override { done.emplace_back("ask"); }
    void withdraw() override { done.emplace_back("withdraw"); }

    std::vector<std::string> done;
};

struct AttentionRequest : testing::Test
{
    RecordedEffects effects;
    attention::AttentionRequest request{effects};
};

constexpr bool active = true;

} // namespace

TEST_F(AttentionRequest, AsksNothingWhileTheApplicationIsActive)
{
    request.request(active);
    EXPECT_THAT(effects.done, IsEmpty());
}

TEST_F(AttentionRequest, AsksOnceForARequestInTheBackground)
{
    request.request(!active);
    EXPECT_THAT(effects.done, ElementsAre("ask"));
}

TEST_F(AttentionRequest, AsksAgainForASecondRequest)
{
    request.request(!active);
    request.request(!active);
    EXPECT_THAT(effects.done, ElementsAre("ask", "ask"));
}

TEST_F(AttentionRequest, IsWithdrawnOnceOnActivation)
{
    request.request(!active);
    request.request(!active);
    request.applicationActivated();
    request.applicationActivated();
    EXPECT_THAT(effects.done, ElementsAre("ask", "ask", "withdraw"));
}

TEST_F(AttentionRequest, HasNothingToWithdrawWithoutARequest)
{
    request.applicationActivated();
    request.request(active);
    request.applicationActivated();
    EXPECT_THAT(effects.done, IsEmpty());
}

TEST_F(AttentionRequest, StartsAgainAfterItWasWithdrawn)
{
    request.request(!active);
    request.applicationActivated();
    request.request(!active);
    request.applicationActivated();
    EXPECT_THAT(effects.done, ElementsAre("ask", "withdraw", "ask", "withdraw"));
}

TEST(LauncherEntry, IsTheDesktopFilesNameWithOneEnding)
{
    EXPECT_EQ(attention::launcherAddress(u"org.example.Zepa"_s, u"Other"_s),
              u"application://org.example.Zepa.desktop"_s);
    EXPECT_EQ(attention::launcherAddress(u"Zepa.desktop"_s, u"Other"_s), u"application://Zepa.desktop"_s);
}

TEST(LauncherEntry, IsTheApplicationsNameInLowerCaseWithoutADesktopFile)
{
    EXPECT_EQ(attention::launcherAddress(QString(), u"Zepa"_s), u"application://zepa.desktop"_s);
}
