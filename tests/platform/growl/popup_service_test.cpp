// SPDX-License-Identifier: Apache-2.0
// Growl's functions over a service that does nothing but record: what whoever implements one may rely on.
#include "growl/popup_service.h"

#include <Growl/Growl.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QPointer>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

using namespace zepa::growl;

namespace {

struct Posted
{
    PopupPosting posting;
    Ticket ticket = 0;
};

class RecordingService final : public PopupService
{
    Q_OBJECT

public:
    ZepaPopupService state() override { return answer; }
    ZepaDoNotDisturb doNotDisturb() override { return ZepaDoNotDisturb::On; }
    void post(const PopupPosting& posting, Ticket ticket) override { posted.push_back({posting, ticket}); }
    void close(PopupId id) override { closings().push_back(id); }

    /// Outlives the service: the end of the program closes, too.
    static std::vector<PopupId>& closings()
    {
        static std::vector<PopupId> ids;
        return ids;
    }

    ZepaPopupService answer = ZepaPopupService::There;
    std::vector<Posted> posted;
};

QPointer<RecordingService>& current()
{
    static QPointer<RecordingService> service;
    return service;
}

std::vector<std::string>& answers()
{
    static std::vector<std::string> list;
    return list;
}

std::string textOf(CFPropertyListRef context)
{
    const auto string = static_cast<CFStringRef>(context);
    std::u16string units(static_cast<size_t>(CFStringGetLength(string)), u' ');
    CFStringGetCharacters(string, {0, CFStringGetLength(string)}, reinterpret_cast<UniChar*>(units.data()));
    return QString::fromStdU16String(units).toStdString();
}

void onClicked(CFPropertyListRef context)
{
    answers().push_back("clicked " + textOf(context) + " " + qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
}

void onTimedOut(CFPropertyListRef context)
{
    answers().push_back("timed out " + textOf(context));
}

/// An application that registered the names "Message" and "Mail".
class PopupServiceTest : public testing::Test
{
protected:
    PopupServiceTest()
    {
        const std::array<const void*, 2> names{CFSTR("Message"), CFSTR("Mail")};
        const CFArrayRef all =
            CFArrayCreate(nullptr, const_cast<const void**>(names.data()), 2, &kCFTypeArrayCallBacks);
        const void* key = CFSTR("AllNotifications");
        const void* value = all;
        const CFDictionaryRef dictionary = CFDictionaryCreate(nullptr, &key, &value, 1, &kCFTypeDictionaryKeyCallBacks,
                                                              &kCFTypeDictionaryValueCallBacks);
        Growl_Delegate delegate{};
        delegate.applicationName = CFSTR("App");
        delegate.registrationDictionary = dictionary;
        delegate.growlNotificationWasClicked = onClicked;
        delegate.growlNotificationTimedOut = onTimedOut;
        Growl_SetDelegate(&delegate);
        CFRelease(dictionary);
        CFRelease(all);
    }
    ~PopupServiceTest() override
    {
        Growl_SetDelegate(nullptr);
        zepaAllowPopupSound(false);
    }

    static RecordingService& service() { return *current(); }

    /// Posts with that text as the context, or without one.
    static Posted post(const char* context, const Growl_Notification& more = {})
    {
        Growl_Notification notification = more;
        const CFStringRef string = context == nullptr
                                       ? nullptr
                                       : CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(context),
                                                                 qstrlen(context), kCFStringEncodingASCII, 0);
        if (notification.name == nullptr)
            notification.name = CFSTR("Message");
        notification.clickContext = string;
        Growl_PostNotification(&notification);
        if (string != nullptr)
            CFRelease(string);
        return service().posted.back();
    }
    static void show(const Posted& posted, PopupId id) { Q_EMIT service().shown(posted.ticket, id); }

    /// Everything that was answered, once the event loop ran.
    static std::vector<std::string> told()
    {
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents();
        return std::exchange(answers(), {});
    }
    using Answers = std::vector<std::string>;
    using Ids = std::vector<PopupId>;
};

} // namespace

std::unique_ptr<PopupService> zepa::growl::makePopupService()
{
    auto service = std::make_unique<RecordingService>();
    current() = service.get();
    return service;
}

TEST_F(PopupServiceTest, RunsUnlessTheServiceKnowsThatThereIsNone)
{
    const auto isRunning = [](ZepaPopupService state) {
        service().answer = state;
        return Growl_IsRunning() != 0;
    };
    EXPECT_TRUE(isRunning(ZepaPopupService::There));
    EXPECT_TRUE(isRunning(ZepaPopupService::NotKnownYet));
    EXPECT_FALSE(isRunning(ZepaPopupService::None));
    EXPECT_FALSE(isRunning(ZepaPopupService::NoBus));
    EXPECT_EQ(zepaPopupService(), ZepaPopupService::NoBus);
    EXPECT_EQ(zepaDoNotDisturb(), ZepaDoNotDisturb::On);
}

TEST_F(PopupServiceTest, GetsOnePostingForEachOfARegisteredName)
{
    Growl_Notification notification{};
    notification.title = CFSTR("Ann");
    notification.description = CFSTR("Lunch?");
    notification.isSticky = 1;
    notification.priority = 2;
    const Posted first = post(nullptr, notification);
    const Posted second = post("b");
    EXPECT_EQ(first.posting.applicationName, u"App"_s);
    EXPECT_EQ(first.posting.title, u"Ann"_s);
    EXPECT_EQ(first.posting.text, u"Lunch?"_s);
    EXPECT_TRUE(first.posting.sticky);
    EXPECT_FALSE(first.posting.clickable);
    EXPECT_EQ(first.posting.priority, 2);
    EXPECT_EQ(second.posting.title, u"Message"_s) << "the name instead of a title";
    EXPECT_TRUE(second.posting.clickable);
    EXPECT_NE(first.ticket, second.ticket);
    notification.name = CFSTR("Other");
    post(nullptr, notification);
    EXPECT_EQ(service().posted.size(), 2U);
}

TEST_F(PopupServiceTest, GetsIconsThatAreDecodedOnceAndSmallEnough)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImage picture(300, 150, QImage::Format_RGB32);
    picture.fill(Qt::green);
    picture.save(&buffer, "PNG");
    Growl_Notification notification{};
    notification.iconData = CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(bytes.constData()), bytes.size());
    const QImage icon = post(nullptr, notification).posting.icon;
    EXPECT_EQ(icon.size(), QSize(PopupService::iconSide, PopupService::iconSide / 2));
    EXPECT_EQ(icon.format(), QImage::Format_RGBA8888);
    EXPECT_EQ(post(nullptr, notification).posting.icon.cacheKey(), icon.cacheKey());
    CFRelease(notification.iconData);
}

TEST_F(PopupServiceTest, TellsClicksAndClosingsOnceAndFromTheEventLoop)
{
    show(post("a"), 70);
    show(post("b"), 71);
    Q_EMIT service().clicked(70, u"token"_s);
    Q_EMIT service().closed(71);
    EXPECT_TRUE(answers().empty()) << "told from within the service's signal";
    EXPECT_EQ(told(), (Answers{"clicked a token", "timed out b"}));
    Q_EMIT service().closed(70);
    Q_EMIT service().clicked(71, {});
    EXPECT_EQ(told(), Answers{});
}

TEST_F(PopupServiceTest, MayTellBeforeItGivesTheId)
{
    const Posted posted = post("a");
    Q_EMIT service().clicked(70, u"token"_s);
    Q_EMIT service().closed(70);
    show(posted, 70);
    EXPECT_EQ(told(), Answers{"clicked a token"});
}

TEST_F(PopupServiceTest, MayUseTicketsAsIdsAndTellOfNoClosing)
{
    const Posted first = post("a");
    const Posted second = post("b");
    show(first, first.ticket);
    show(second, second.ticket);
    Q_EMIT service().clicked(second.ticket, {});
    EXPECT_EQ(told(), Answers{"clicked b "});
    EXPECT_EQ(RecordingService::closings(), Ids{second.ticket}) << "a click closes the pop-up";
}

TEST_F(PopupServiceTest, IsAskedToCloseWhatComesAfterItWasGivenUp)
{
    const Posted late = post("late");
    Q_EMIT service().notShown(late.ticket);
    EXPECT_EQ(told(), Answers{"timed out late"});
    show(late, 70);
    EXPECT_EQ(RecordingService::closings(), Ids{70});
    // Unless a later pop-up has that id by now.
    show(post("new"), 71);
    show(late, 71);
    EXPECT_EQ(RecordingService::closings(), Ids{70});
    Q_EMIT service().clicked(71, {});
    EXPECT_EQ(told(), Answers{"clicked new "});
}

TEST_F(PopupServiceTest, IsLostWithAllItsIds)
{
    show(post("a"), 70);
    const Posted waiting = post("b");
    Q_EMIT service().lost();
    EXPECT_EQ(told(), Answers{"timed out a"});
    show(waiting, 70);
    Q_EMIT service().clicked(70, {});
    EXPECT_EQ(told(), Answers{"clicked b "});
}

TEST_F(PopupServiceTest, ClosesThePopupsOfANameAndATitle)
{
    Growl_Notification notification{};
    notification.title = CFSTR("Ann");
    show(post("a", notification), 70);
    show(post(nullptr, notification), 71);
    const Posted onItsWay = post("on its way", notification);
    notification.title = CFSTR("Bob");
    show(post("b", notification), 73);
    notification.title = CFSTR("Ann");
    notification.name = CFSTR("Mail");
    show(post("mail", notification), 74);
    zepaWithdrawPopups(u"Message"_s, u"Ann"_s);
    EXPECT_EQ(RecordingService::closings(), (Ids{70, 71}));
    show(onItsWay, 72);
    EXPECT_EQ(RecordingService::closings(), (Ids{70, 71, 72}));
    EXPECT_EQ(told(), (Answers{"timed out a", "timed out on its way"}));
}

TEST_F(PopupServiceTest, IsToldTheKindOfANameAndWhetherItMaySound)
{
    zepaSetPopupKind(u"Message"_s, {u"im.received"_s, true});
    zepaAllowPopupSound(true);
    const PopupPosting message = post(nullptr).posting;
    EXPECT_EQ(message.kind.category, u"im.received"_s);
    EXPECT_TRUE(message.kind.isTransient);
    EXPECT_TRUE(message.wantsSound);
    zepaAllowPopupSound(false);
    Growl_Notification mail{};
    mail.name = CFSTR("Mail");
    EXPECT_TRUE(post(nullptr, mail).posting.kind.category.isEmpty());
    EXPECT_FALSE(service().posted.back().posting.wantsSound);
    zepaSetPopupKind(u"Message"_s, {});
    EXPECT_TRUE(post(nullptr).posting.kind.category.isEmpty());
}

TEST_F(PopupServiceTest, LeavesNoTokenBehindForLaterChildren)
{
    show(post("a"), 70);
    Q_EMIT service().clicked(70, u"token"_s);
    EXPECT_EQ(told(), Answers{"clicked a token"});
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

#include "popup_service_test.moc"
