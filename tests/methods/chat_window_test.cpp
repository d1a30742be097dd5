// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/chat_window_notification_method.h"
#include "module_test.h"

using namespace Qt::StringLiterals;

namespace {

class ChatWindow : public ModuleTest
{
protected:
    ChatWindow() { host.windows.insert(u"ann"_s, &window); }

    static ZepaArg buddy(const QString& id) { return ZepaArg::fromBuddy(ZepaBuddy(id, id, ZepaBuddy::Contact)); }
    void post(const QString& text, const QList<ZepaArg>& args)
    {
        ZepaNotification notification(u"event"_s, QString(), QString(), QString());
        method.postNotification(0, &notification, u"title"_s, text, QString(), QString(), {}, ZepaPluginAction(), args);
    }
    /// The line that a text becomes.
    QString lineOf(const QString& text)
    {
        post(text, {buddy(u"ann"_s)});
        return window.lines.value(window.lines.size() - 1);
    }

    RecordingChatWindow window;
    ZepaChatWindowNotificationMethod method;
};

} // namespace

TEST_F(ChatWindow, GetsTheTextOfAPostingWhoseFirstArgumentIsItsBuddy)
{
    EXPECT_EQ(lineOf(u"Ann is away"_s), u"Ann is away"_s);
    EXPECT_EQ(window.lines.size(), 1);
}

TEST_F(ChatWindow, GetsBuiltInPicturesAsResourceAddresses)
{
    EXPECT_EQ(lineOf(u"You got an alert image::/icons/bell.png:image"_s),
              u"You got an alert image:qrc:/icons/bell.png:image"_s);
    EXPECT_EQ(lineOf(u"image::/a:image image::/b:image"_s), u"image:qrc:/a:image image:qrc:/b:image"_s);
}

TEST_F(ChatWindow, GetsOtherPicturesAsTheyStand)
{
    EXPECT_EQ(lineOf(u"image:/tmp/x.png:image"_s), u"image:/tmp/x.png:image"_s);
}

TEST_F(ChatWindow, GetsBlanksAtBothEndsOfTheText)
{
    for (const QString& text : {u"  Ann is away \n"_s, u"\t\u00a0"_s, u" "_s})
        EXPECT_EQ(lineOf(text), text);
    EXPECT_EQ(window.lines.size(), 3);
}

TEST_F(ChatWindow, GetsAMarkerInAnotherCaseAsItStands)
{
    EXPECT_EQ(lineOf(u"IMAGE::/x Image::/y"_s), u"IMAGE::/x Image::/y"_s);
}

TEST_F(ChatWindow, LeavesTheCallersTextAlone)
{
    const QString text = u"image::/x:image"_s;
    lineOf(text);
    EXPECT_EQ(text, u"image::/x:image"_s);
}

TEST_F(ChatWindow, GetsNothingWhenItIsNotOpen)
{
    registerType(u"bound"_s);
    ZepaChatWindowNotificationMethod& installed = method;
    addRule(u"bound"_s, installed);
    module().postNotification(u"bound"_s, u"t"_s, u"x"_s, QString(), QString(), ZepaPluginAction(), {buddy(u"bob"_s)});
    EXPECT_EQ(host.windowsAskedFor, QStringList({u"bob"_s}));
    EXPECT_TRUE(window.lines.isEmpty());
}

TEST_F(ChatWindow, GetsNothingWhenTheBuddyIsTheSecondArgument)
{
    post(u"x"_s, {ZepaArg::fromText(u"ann"_s), buddy(u"ann"_s)});
    EXPECT_TRUE(window.lines.isEmpty());
    EXPECT_TRUE(host.windowsAskedFor.isEmpty());
}

TEST_F(ChatWindow, GetsNothingWithoutArguments)
{
    post(u"x"_s, {});
    EXPECT_TRUE(host.windowsAskedFor.isEmpty());
}

TEST_F(ChatWindow, IsServedByDefaultForAlertsAndStatusChangesWithRulesWithoutFields)
{
    EXPECT_TRUE(method.fields.isEmpty());
    for (const char* id : {"alert_sent_notify", "alert_received_notify", "buddy_changed_status"})
        EXPECT_TRUE(method.getDefaultNotificationConfig(QString::fromLatin1(id)).isEmpty()) << id;
    EXPECT_EQ(method.getDefaultNotificationConfig(u"message_received"_s).size(), 1);
    module();
    ZepaNotificationModule::init();
    module().postNotification(u"buddy_changed_status"_s, u"t"_s, u"busy"_s, QString(), QString(), ZepaPluginAction(),
                              {buddy(u"ann"_s)});
    EXPECT_EQ(window.lines, QStringList({u"busy"_s}));
}

TEST_F(ChatWindow, NamesTheMethod)
{
    EXPECT_EQ(method.getId(), u"zepa_chat_window_notification_method"_s);
    EXPECT_EQ(method.getActionName(), u"display information in chat window"_s);
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(ChatWindow, TranslatesTheNameOfTheMethodUnderItsContextAndComment)
{
    const MarkingTranslator::Installed translator;
    EXPECT_EQ(method.getActionName(), u"display information in chat window|translation|action description"_s);
}
