// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/chat_window_notification_method.h"
#include "module_test.h"

namespace {

class ChatWindow : public ModuleTest
{
protected:
    ChatWindow() { host.windows.insert(QStringLiteral("ann"), &window); }

    static ZepaArg buddy(const QString& id) { return ZepaArg::fromBuddy(ZepaBuddy(id, id, ZepaBuddy::Contact)); }
    void post(const QString& text, const QList<ZepaArg>& args)
    {
        ZepaNotification notification(QStringLiteral("event"), QString(), QString(), QString());
        method.postNotification(0, &notification, QStringLiteral("title"), text, QString(), QString(), {},
                                ZepaPluginAction(), args);
    }
    /// The line that a text becomes.
    QString lineOf(const QString& text)
    {
        post(text, {buddy(QStringLiteral("ann"))});
        return window.lines.value(window.lines.size() - 1);
    }

    RecordingChatWindow window;
    ZepaChatWindowNotificationMethod method;
};

} // namespace

TEST_F(ChatWindow, GetsTheTextOfAPostingWhoseFirstArgumentIsItsBuddy)
{
    EXPECT_EQ(lineOf(QStringLiteral("Ann is away")), QStringLiteral("Ann is away"));
    EXPECT_EQ(window.lines.size(), 1);
}

TEST_F(ChatWindow, GetsBuiltInPicturesAsResourceAddresses)
{
    EXPECT_EQ(lineOf(QStringLiteral("You got an alert image::/icons/bell.png:image")),
              QStringLiteral("You got an alert image:qrc:/icons/bell.png:image"));
    EXPECT_EQ(lineOf(QStringLiteral("image::/a:image image::/b:image")),
              QStringLiteral("image:qrc:/a:image image:qrc:/b:image"));
}

TEST_F(ChatWindow, GetsOtherPicturesAsTheyStand)
{
    EXPECT_EQ(lineOf(QStringLiteral("image:/tmp/x.png:image")), QStringLiteral("image:/tmp/x.png:image"));
}

TEST_F(ChatWindow, GetsBlanksAtBothEndsOfTheText)
{
    for (const QString& text : {QStringLiteral("  Ann is away \n"), QStringLiteral("\t\u00a0"), QStringLiteral(" ")})
        EXPECT_EQ(lineOf(text), text);
    EXPECT_EQ(window.lines.size(), 3);
}

TEST_F(ChatWindow, GetsAMarkerInAnotherCaseAsItStands)
{
    EXPECT_EQ(lineOf(QStringLiteral("IMAGE::/x Image::/y")), QStringLiteral("IMAGE::/x Image::/y"));
}

TEST_F(ChatWindow, LeavesTheCallersTextAlone)
{
    const QString text = QStringLiteral("image::/x:image");
    lineOf(text);
    EXPECT_EQ(text, QStringLiteral("image::/x:image"));
}

TEST_F(ChatWindow, GetsNothingWhenItIsNotOpen)
{
    registerType(QStringLiteral("bound"));
    ZepaChatWindowNotificationMethod& installed = method;
    addRule(QStringLiteral("bound"), installed);
    module().postNotification(QStringLiteral("bound"), QStringLiteral("t"), QStringLiteral("x"), QString(), QString(),
                              ZepaPluginAction(), {buddy(QStringLiteral("bob"))});
    EXPECT_EQ(host.windowsAskedFor, QStringList({QStringLiteral("bob")}));
    EXPECT_TRUE(window.lines.isEmpty());
}

TEST_F(ChatWindow, GetsNothingWhenTheBuddyIsTheSecondArgument)
{
    post(QStringLiteral("x"), {ZepaArg::fromText(QStringLiteral("ann")), buddy(QStringLiteral("ann"))});
    EXPECT_TRUE(window.lines.isEmpty());
    EXPECT_TRUE(host.windowsAskedFor.isEmpty());
}

TEST_F(ChatWindow, GetsNothingWithoutArguments)
{
    post(QStringLiteral("x"), {});
    EXPECT_TRUE(host.windowsAskedFor.isEmpty());
}

TEST_F(ChatWindow, IsServedByDefaultForAlertsAndStatusChangesWithRulesWithoutFields)
{
    EXPECT_TRUE(method.fields.isEmpty());
    for (const char* id : {"alert_sent_notify", "alert_received_notify", "buddy_changed_status"})
        EXPECT_TRUE(method.getDefaultNotificationConfig(QString::fromLatin1(id)).isEmpty()) << id;
    EXPECT_EQ(method.getDefaultNotificationConfig(QStringLiteral("message_received")).size(), 1);
    module();
    ZepaNotificationModule::init();
    module().postNotification(QStringLiteral("buddy_changed_status"), QStringLiteral("t"), QStringLiteral("busy"),
                              QString(), QString(), ZepaPluginAction(), {buddy(QStringLiteral("ann"))});
    EXPECT_EQ(window.lines, QStringList({QStringLiteral("busy")}));
}

TEST_F(ChatWindow, NamesTheMethod)
{
    EXPECT_EQ(method.getId(), QStringLiteral("zepa_chat_window_notification_method"));
    EXPECT_EQ(method.getActionName(), QStringLiteral("display information in chat window"));
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(ChatWindow, TranslatesTheNameOfTheMethodUnderItsContextAndComment)
{
    const MarkingTranslator::Installed translator;
    EXPECT_EQ(method.getActionName(),
              QStringLiteral("display information in chat window|translation|action description"));
}
