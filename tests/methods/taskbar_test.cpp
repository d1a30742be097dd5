// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/taskbar_notification_method.h"
#include "module_test.h"

namespace {

using Taskbar = ModuleTest;

} // namespace

TEST_F(Taskbar, AsksForAttentionOnceForEachPosting)
{
    ZepaTaskbarNotificationMethod method;
    ZepaNotification notification(QStringLiteral("event"), QString(), QString(), QString());
    for (int expected = 1; expected <= 2; ++expected) {
        method.postNotification(0, &notification, QStringLiteral("t"), QStringLiteral("x"), QString(), QString(), {},
                                ZepaPluginAction(), {ZepaArg()});
        EXPECT_EQ(RecordingAttention::requests, expected);
    }
}

TEST_F(Taskbar, AsksForAttentionWithoutArgumentsTextsOrFieldsJustTheSame)
{
    ZepaTaskbarNotificationMethod method;
    method.postNotification(0, nullptr, QString(), QString(), QString(), QString(), {}, ZepaPluginAction(), {});
    EXPECT_EQ(RecordingAttention::requests, 1);
}

TEST_F(Taskbar, AsksForAttentionWhenCalledDirectly)
{
    bounceDockIcon();
    EXPECT_EQ(RecordingAttention::requests, 1);
}

TEST_F(Taskbar, IsServedByDefaultForBackgroundAndInitialMessagesWithRulesWithoutFields)
{
    module();
    ZepaNotificationModule::init();
    for (const char* id : {"message_received_background", "message_received_initial"}) {
        RecordingAttention::requests = 0;
        post(QString::fromLatin1(id), QStringLiteral("title"));
        EXPECT_EQ(RecordingAttention::requests, 1) << id;
    }
    RecordingAttention::requests = 0;
    post(QStringLiteral("message_received"), QStringLiteral("title"));
    EXPECT_EQ(RecordingAttention::requests, 0);
    EXPECT_TRUE(ZepaTaskbarNotificationMethod().fields.isEmpty());
}

TEST_F(Taskbar, NamesTheMethod)
{
    const ZepaTaskbarNotificationMethod method;
    EXPECT_EQ(method.getId(), QStringLiteral("zepa_dock_bounce_notification_method"));
    EXPECT_EQ(method.getActionName(), QStringLiteral("Bounce dock icon"));
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(Taskbar, TranslatesTheNameOfTheMethodUnderItsContextAndComment)
{
    const MarkingTranslator::Installed translator;
    EXPECT_EQ(ZepaTaskbarNotificationMethod().getActionName(), QStringLiteral("Bounce dock icon|translation|nc"));
}
