// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/taskbar_notification_method.h"
#include "module_test.h"

using namespace Qt::StringLiterals;

namespace {

using Taskbar = ModuleTest;

} // namespace

TEST_F(Taskbar, AsksForAttentionOnceForEachPosting)
{
    ZepaTaskbarNotificationMethod method;
    ZepaNotification notification(u"event"_s, QString(), QString(), QString());
    for (int expected = 1; expected <= 2; ++expected) {
        method.postNotification(0, &notification, u"t"_s, u"x"_s, QString(), QString(), {}, ZepaPluginAction(),
                                {ZepaArg()});
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
        post(QString::fromLatin1(id), u"title"_s);
        EXPECT_EQ(RecordingAttention::requests, 1) << id;
    }
    RecordingAttention::requests = 0;
    post(u"message_received"_s, u"title"_s);
    EXPECT_EQ(RecordingAttention::requests, 0);
    EXPECT_TRUE(ZepaTaskbarNotificationMethod().fields.isEmpty());
}

TEST_F(Taskbar, NamesTheMethod)
{
    const ZepaTaskbarNotificationMethod method;
    EXPECT_EQ(method.getId(), u"zepa_dock_bounce_notification_method"_s);
    EXPECT_EQ(method.getActionName(), u"Bounce dock icon"_s);
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(Taskbar, TranslatesTheNameOfTheMethodUnderItsContextAndComment)
{
    const MarkingTranslator::Installed translator;
    EXPECT_EQ(ZepaTaskbarNotificationMethod().getActionName(), u"Bounce dock icon|translation|nc"_s);
}
