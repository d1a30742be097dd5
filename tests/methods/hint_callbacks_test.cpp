// SPDX-License-Identifier: Apache-2.0
#include "methods/hint_notification_method.h"
#include "module_test.h"

#include <dlfcn.h>

#include <functional>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What is handed out for every property list, when set: a system may keep one object for each text.
CFPropertyListRef sharedContext = nullptr;

} // namespace

// The program's definition comes before those of its libraries.
CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef allocator, CFDataRef data, CFOptionFlags options,
                                                  CFStringRef* error)
{
    if (sharedContext != nullptr)
        return CFRetain(sharedContext);
    static const auto make = reinterpret_cast<decltype(&CFPropertyListCreateFromXMLData)>(
        dlsym(RTLD_NEXT, "CFPropertyListCreateFromXMLData"));
    return make(allocator, data, options, error);
}

namespace {

const QString event = u"info_notify"_s;

class HintCallbacks : public ModuleTest
{
protected:
    HintCallbacks() { registerType(event); }

    /// Posts with an action; the context of its pop-up stays alive until the test ends.
    CFPropertyListRef post(const std::function<void()>& work = [] {})
    {
        static int postings = 0;
        ModuleTest::post(event, QString::number(++postings), ZepaPluginAction(work));
        return RecordingGrowl::popups.last().context;
    }
    /// Posts straight to the method under a number of the test's choice.
    CFPropertyListRef postNumber(unsigned int number, const std::function<void()>& work)
    {
        hnminstance->postNotification(number, type(event), event, event, QString(), QString(), {},
                                      ZepaPluginAction(work), {});
        return RecordingGrowl::popups.last().context;
    }
    /// The lines that `work` prints to standard error.
    static QStringList printed(const std::function<void()>& work)
    {
        testing::internal::CaptureStderr();
        work();
        const QString text = QString::fromStdString(testing::internal::GetCapturedStderr());
        return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    int runs = 0;
    const std::function<void()> count = [this] { ++runs; };
};

} // namespace

TEST_F(HintCallbacks, AClickRunsTheActionOnceAndForgetsIt)
{
    const CFPropertyListRef context = post(count);
    notificationClicked(context);
    notificationClicked(context);
    notificationTimedOut(context);
    EXPECT_EQ(runs, 1);
    // What is left is the recording Growl's reference.
    EXPECT_EQ(CFGetRetainCount(context), 1);
}

TEST_F(HintCallbacks, AClickWithAnEqualContextThatIsAnotherObjectRunsTheAction)
{
    post(count);
    notificationClicked(CFSTR("0"));
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AClickRunsTheActionsOfAllEqualContexts)
{
    CFPropertyListRef first = postNumber(7, count);
    CFPropertyListRef second = postNumber(7, count);
    CFPropertyListRef other = postNumber(8, [] { FAIL(); });
    notificationClicked(first);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(CFGetRetainCount(first), 1);
    EXPECT_EQ(CFGetRetainCount(second), 1);
    EXPECT_EQ(CFGetRetainCount(other), 2);
}

TEST_F(HintCallbacks, ATimeOutForgetsTheActionWithoutRunningOrPrintingAnything)
{
    const CFPropertyListRef context = post(count);
    EXPECT_TRUE(printed([&] { notificationTimedOut(context); }).isEmpty());
    EXPECT_EQ(CFGetRetainCount(context), 1);
    notificationClicked(context);
    EXPECT_EQ(runs, 0);
}

TEST_F(HintCallbacks, AnAnswerForAContextThatIsNotPendingLeavesTheTableUnchanged)
{
    const CFPropertyListRef context = post(count);
    notificationTimedOut(CFSTR("not pending"));
    notificationClicked(CFSTR("not pending"));
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(CFGetRetainCount(context), 2);
    notificationClicked(context);
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AClickPrintsTheContextTwiceAndEveryPendingOne)
{
    post();
    post();
    const QStringList lines = printed([] { notificationClicked(CFSTR("other")); });
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.first(), u"other"_s);
    EXPECT_EQ(lines.at(1), u"other"_s);
    EXPECT_TRUE(lines.contains(u"0"_s));
    EXPECT_TRUE(lines.contains(u"1"_s));
}

TEST(HintCallbacksAlone, AClickBeforeAnyMethodExistsDoesNothingButOnePrint)
{
    ASSERT_EQ(hnminstance, nullptr);
    testing::internal::CaptureStderr();
    notificationClicked(CFSTR("early"));
    notificationTimedOut(CFSTR("early"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "early\n");
}

TEST_F(HintCallbacks, AnAnswerAfterTheModuleIsGoneTouchesNothingThoughTheGlobalStillPointsThere)
{
    const CFPropertyListRef context = post([] { FAIL(); });
    const ZepaHintNotificationMethod* before = hnminstance;
    closeModule();
    EXPECT_EQ(hnminstance, before);
    EXPECT_EQ(CFGetRetainCount(context), 1);
    notificationClicked(context);
    notificationTimedOut(context);
}

TEST_F(HintCallbacks, WorkWithTheMethodThatTheGlobalPointsToThoughAnotherWasMadeLater)
{
    ZepaHintNotificationMethod* const first = hnminstance;
    postNumber(7, count);
    CFPropertyListRef eighth = postNumber(8, count);
    auto later = std::make_unique<ZepaHintNotificationMethod>();
    ASSERT_EQ(hnminstance, later.get());
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 0);

    hnminstance = first;
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 1);
    notificationTimedOut(CFSTR("8"));
    EXPECT_EQ(CFGetRetainCount(eighth), 1);
    postNumber(9, count);
    later.reset();
    notificationClicked(CFSTR("9"));
    EXPECT_EQ(runs, 2);
}

TEST_F(HintCallbacks, TouchNothingOnceTheMethodThatTheGlobalPointsToIsGoneThoughAnotherLives)
{
    ZepaHintNotificationMethod* const first = hnminstance;
    postNumber(7, count);
    std::make_unique<ZepaHintNotificationMethod>().reset();
    ASSERT_NE(hnminstance, first);
    notificationClicked(CFSTR("7"));
    notificationTimedOut(CFSTR("7"));
    EXPECT_EQ(runs, 0);
    hnminstance = first;
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AnActionMayClickTheSamePopupAgain)
{
    CFPropertyListRef context = nullptr;
    context = post([&] {
        ++runs;
        notificationClicked(context);
    });
    notificationClicked(context);
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AnActionThatThrowsIsForgottenAndItsExceptionPassesThrough)
{
    const CFPropertyListRef context = post([] { throw std::runtime_error("from an action"); });
    EXPECT_THROW(notificationClicked(context), std::runtime_error);
    EXPECT_EQ(CFGetRetainCount(context), 1);
    EXPECT_NO_THROW(notificationClicked(context));
}

TEST_F(HintCallbacks, TheTablesReferenceOnAContextIsGivenUpBeforeTheActionRuns)
{
    CFPropertyListRef context = nullptr;
    CFIndex references = 0;
    context = post([&] { references = CFGetRetainCount(context); });
    notificationClicked(context);
    // The recording Growl's, and that of the call-back while it walks.
    EXPECT_EQ(references, 2);
}

TEST_F(HintCallbacks, AnActionMayAnswerAnEqualPopupThatIsStillToCome)
{
    const auto clickAgain = [&] {
        ++runs;
        notificationClicked(CFSTR("7"));
    };
    postNumber(7, clickAgain);
    postNumber(7, clickAgain);
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 2);
}

TEST_F(HintCallbacks, AnActionMayTimeOutAnEqualPopupThatIsStillToCome)
{
    const auto timeOut = [&] {
        ++runs;
        notificationTimedOut(CFSTR("7"));
    };
    postNumber(7, timeOut);
    postNumber(7, timeOut);
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, APopupThatAnActionPostsIsNotAnsweredByTheSameClick)
{
    CFPropertyListRef inner = nullptr;
    postNumber(7, [&] { inner = postNumber(7, count); });
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 0);
    notificationClicked(inner);
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AnActionMayTakeTheModuleDown)
{
    postNumber(7, [&] { closeModule(); });
    postNumber(7, [&] { closeModule(); });
    notificationClicked(CFSTR("7"));
    EXPECT_TRUE(module().getNotifications().isEmpty());
}

TEST_F(HintCallbacks, AClientMayPostWhenItNoticesThatItsActionIsGone)
{
    CFPropertyListRef context = nullptr;
    {
        const std::shared_ptr<int> token(new int, [this](int* value) {
            delete value;
            post(count);
        });
        context = post([token] {});
    }
    const qsizetype before = RecordingGrowl::popups.size();
    notificationTimedOut(context);
    EXPECT_EQ(RecordingGrowl::popups.size(), before + 1);
}

TEST_F(HintCallbacks, AnAnswerThatComesInsideAPostingFindsTheAction)
{
    RecordingGrowl::whilePosting = [] {
        RecordingGrowl::whilePosting = nullptr;
        notificationClicked(RecordingGrowl::popups.last().context);
    };
    post(count);
    EXPECT_EQ(runs, 1);
}

TEST_F(HintCallbacks, AClickRunsTheActionsInTheOrderOfTheTable)
{
    // A hash that is filled with the same keys in the same order is walked in the same order as the table.
    QHash<const void*, QString> names;
    QStringList order;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
        names.insert(postNumber(7, [&order, name] { order.append(name); }), name);
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(order, QStringList(names.values()));
}

TEST_F(HintCallbacks, ATimeOutForgetsTheActionsOfAllEqualContexts)
{
    CFPropertyListRef first = postNumber(7, count);
    CFPropertyListRef second = postNumber(7, count);
    CFPropertyListRef other = postNumber(8, count);
    notificationTimedOut(CFSTR("7"));
    EXPECT_EQ(CFGetRetainCount(first), 1);
    EXPECT_EQ(CFGetRetainCount(second), 1);
    EXPECT_EQ(CFGetRetainCount(other), 2);
    notificationClicked(CFSTR("7"));
    EXPECT_EQ(runs, 0);
}

TEST_F(HintCallbacks, TheLaterOfTwoPostingsWhoseContextsAreOneObjectTakesThePlaceOfTheEarlier)
{
    const UniChar seven = '7';
    sharedContext = CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(&seven), sizeof(seven),
                                            kCFStringEncodingUnicode, 0);
    postNumber(7, [] { FAIL(); });
    postNumber(7, count);
    // The test's reference, the recording Growl's two, and one of the table.
    EXPECT_EQ(CFGetRetainCount(sharedContext), 4);
    notificationClicked(sharedContext);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(CFGetRetainCount(sharedContext), 3);
    CFRelease(std::exchange(sharedContext, nullptr));
}
