// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"
#include "objc_stand_in/recording_runtime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;

class AppKitAttention : public testing::Test
{
protected:
    AppKitAttention()
    {
        RecordingRuntime::messages.clear();
        RecordingRuntime::throwingMessage.clear();
    }
};

} // namespace

TEST_F(AppKitAttention, SendsOneInformationalRequestWithinAPool)
{
    bounceDockIcon();
    EXPECT_THAT(RecordingRuntime::messages,
                ElementsAre("NSAutoreleasePool alloc", "pool init", "NSApplication sharedApplication",
                            "app requestUserAttention:10", "pool drain"));
}

TEST_F(AppKitAttention, MakesTwoRequestsForTwoCalls)
{
    bounceDockIcon();
    const std::vector<std::string> once = RecordingRuntime::messages;
    bounceDockIcon();
    std::vector<std::string> twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(RecordingRuntime::messages, twice);
}

TEST_F(AppKitAttention, DrainsThePoolWhenTheRequestThrows)
{
    RecordingRuntime::throwingMessage = "requestUserAttention:";
    EXPECT_THROW(bounceDockIcon(), std::runtime_error);
    EXPECT_THAT(RecordingRuntime::messages,
                ElementsAre("NSAutoreleasePool alloc", "pool init", "NSApplication sharedApplication",
                            "app requestUserAttention:10", "pool drain"));
}

TEST_F(AppKitAttention, DrainsThePoolWhenThereIsNoApplication)
{
    RecordingRuntime::throwingMessage = "sharedApplication";
    EXPECT_THROW(bounceDockIcon(), std::runtime_error);
    EXPECT_THAT(RecordingRuntime::messages,
                ElementsAre("NSAutoreleasePool alloc", "pool init", "NSApplication sharedApplication", "pool drain"));
}
