// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/hint_notification_method.h"
#include "module_test.h"

#include <dlfcn.h>

namespace {

QList<CFMutableArrayRef> mutableArrays;

} // namespace

// Notes what is made, and has the platform make it. The program's definition comes before those of its libraries.
CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity, const CFArrayCallBacks* callBacks)
{
    static const auto make =
        reinterpret_cast<decltype(&CFArrayCreateMutable)>(dlsym(RTLD_NEXT, "CFArrayCreateMutable"));
    mutableArrays.append(make(allocator, capacity, callBacks));
    return mutableArrays.last();
}

namespace {

class HintRegistration : public ModuleTest
{
protected:
    static QStringList sorted(QStringList names)
    {
        names.sort();
        return names;
    }
    const QStringList firstNames{QStringLiteral("message_received_initial"),
                                 QStringLiteral("message_received_background"), QStringLiteral("message_received")};
};

} // namespace

// Identifiers in place of display names, and three in place of seven: this registration is odd and meant.
TEST_F(HintRegistration, RightAfterConstructionIsExactlyTheFirstThreeIdentifiersInTheirOrder)
{
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(RecordingGrowl::registrations, QList<QStringList>({firstNames}));
}

TEST_F(HintRegistration, IsMadeUnderTheNameZepaWithTheCallBacksAndNothingElse)
{
    const ZepaHintNotificationMethod method;
    const Growl_Delegate* delegate = RecordingGrowl::delegate;
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->size, sizeof(Growl_Delegate));
    EXPECT_EQ(RecordingGrowl::toQString(delegate->applicationName), QStringLiteral("Zepa"));
    EXPECT_EQ(delegate->applicationIconData, nullptr);
    EXPECT_EQ(delegate->growlInstallationWindowTitle, nullptr);
    EXPECT_EQ(delegate->growlInstallationInformation, nullptr);
    EXPECT_EQ(delegate->growlUpdateWindowTitle, nullptr);
    EXPECT_EQ(delegate->growlUpdateInformation, nullptr);
    EXPECT_EQ(delegate->referenceCount, 1U);
    EXPECT_EQ(delegate->retain, nullptr);
    EXPECT_EQ(delegate->release, nullptr);
    EXPECT_EQ(delegate->growlIsReady, nullptr);
    EXPECT_EQ(delegate->growlNotificationWasClicked, &notificationClicked);
    EXPECT_EQ(delegate->growlNotificationTimedOut, &notificationTimedOut);
    EXPECT_GE(reinterpret_cast<const char*>(delegate), reinterpret_cast<const char*>(&method));
    EXPECT_LT(reinterpret_cast<const char*>(delegate), reinterpret_cast<const char*>(&method + 1));
}

TEST_F(HintRegistration, MakesTheMethodTheOneOfTheCallBacks)
{
    EXPECT_EQ(hnminstance, nullptr);
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(hnminstance, &method);
}

TEST_F(HintRegistration, IsMadeWhenTheMethodIsTheOneOfTheCallBacksAlready)
{
    const ZepaHintNotificationMethod* then = nullptr;
    RecordingGrowl::whileRegistering = [&then] { then = hnminstance; };
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(then, &method);
}

TEST_F(HintRegistration, IsEmptyAfterInstallationIntoAModuleWithoutTypes)
{
    module();
    EXPECT_EQ(RecordingGrowl::registrations, QList<QStringList>({firstNames, {}}));
}

TEST_F(HintRegistration, HoldsTheDisplayNamesOfAllTypesAfterEachNewOne)
{
    module();
    module().registerNotification(QStringLiteral("one"), QStringLiteral("First"), QStringLiteral("extra"),
                                  QStringLiteral("description"));
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({QStringLiteral("First")}));
    module().registerNotification(QStringLiteral("two"), QStringLiteral("Second"), QString(), QString());
    EXPECT_EQ(sorted(RecordingGrowl::registrations.last()),
              QStringList({QStringLiteral("First"), QStringLiteral("Second")}));
}

TEST_F(HintRegistration, HoldsTheModulesFullListWhicheverTypeIsGiven)
{
    registerType(QStringLiteral("one"));
    ZepaNotification stranger(QStringLiteral("id"), QStringLiteral("Stranger"), QString(), QString());
    const qsizetype before = RecordingGrowl::registrations.size();
    hnminstance->registerNotification(&stranger);
    hnminstance->registerNotification(nullptr);
    ASSERT_EQ(RecordingGrowl::registrations.size(), before + 2);
    EXPECT_EQ(RecordingGrowl::registrations.at(before), QStringList({QStringLiteral("Name of one")}));
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({QStringLiteral("Name of one")}));
}

TEST_F(HintRegistration, HoldsExactlyTheGivenTypesInTheirOrder)
{
    ZepaHintNotificationMethod method;
    ZepaNotification b(QStringLiteral("1"), QStringLiteral("B"), QString(), QString());
    ZepaNotification a(QStringLiteral("2"), QStringLiteral("A"), QString(), QString());
    method.registerNotifications({&b, &a});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({QStringLiteral("B"), QStringLiteral("A")}));
    method.registerNotifications({});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList());
}

TEST_F(HintRegistration, TakesATypeWithoutANameForOneWithAnEmptyName)
{
    ZepaHintNotificationMethod method;
    ZepaNotification nameless(QStringLiteral("1"), QString(), QString(), QString());
    method.registerNotifications({&nameless});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({QStringLiteral("")}));
}

TEST_F(HintRegistration, GivesUpWhatTheLastOneOwned)
{
    ZepaHintNotificationMethod method;
    ZepaNotification one(QStringLiteral("1"), QStringLiteral("One"), QString(), QString());
    method.registerNotifications({&one});
    const CFDictionaryRef dictionary = RecordingGrowl::delegate->registrationDictionary;
    const auto names = static_cast<CFArrayRef>(CFDictionaryGetValue(dictionary, CFSTR("AllNotifications")));
    const auto name = static_cast<CFStringRef>(CFArrayGetValueAtIndex(names, 0));
    // Creation references: the dictionary's, its array's, its strings'.
    EXPECT_EQ(CFGetRetainCount(dictionary), 1);
    EXPECT_EQ(CFGetRetainCount(names), 2);
    EXPECT_EQ(CFGetRetainCount(name), 2);
    for (CFTypeRef object :
         {static_cast<CFTypeRef>(dictionary), static_cast<CFTypeRef>(names), static_cast<CFTypeRef>(name)})
        CFRetain(object);
    method.registerNotifications({});
    for (CFTypeRef object :
         {static_cast<CFTypeRef>(dictionary), static_cast<CFTypeRef>(names), static_cast<CFTypeRef>(name)}) {
        EXPECT_EQ(CFGetRetainCount(object), 1);
        CFRelease(object);
    }
}

TEST_F(HintRegistration, GivesUpWhatItOwnsWithTheMethod)
{
    CFDictionaryRef dictionary = nullptr;
    CFArrayRef names = nullptr;
    CFStringRef name = nullptr;
    {
        ZepaHintNotificationMethod method;
        ZepaNotification one(QStringLiteral("1"), QStringLiteral("One"), QString(), QString());
        method.registerNotifications({&one});
        dictionary = RecordingGrowl::delegate->registrationDictionary;
        names = static_cast<CFArrayRef>(CFDictionaryGetValue(dictionary, CFSTR("AllNotifications")));
        name = static_cast<CFStringRef>(CFArrayGetValueAtIndex(names, 0));
        for (CFTypeRef object :
             {static_cast<CFTypeRef>(dictionary), static_cast<CFTypeRef>(names), static_cast<CFTypeRef>(name)})
            CFRetain(object);
    }
    // The test's own references are the last ones, from the outermost object inwards.
    for (CFTypeRef object :
         {static_cast<CFTypeRef>(dictionary), static_cast<CFTypeRef>(names), static_cast<CFTypeRef>(name)}) {
        EXPECT_EQ(CFGetRetainCount(object), 1);
        CFRelease(object);
    }
}

TEST_F(HintRegistration, OffersAStickyBoxThatIsOffForSevenTypes)
{
    const ZepaHintNotificationMethod method;
    ASSERT_EQ(method.fields.size(), 1);
    EXPECT_EQ(method.fields.first().getId(), QStringLiteral("sticky"));
    EXPECT_EQ(method.fields.first().getType(), ZepaField::CheckBox);
    EXPECT_EQ(method.fields.first().getLabel(), QStringLiteral("Sticky"));
    EXPECT_FALSE(method.fields.first().isChecked());
    for (const char* id : {"message_received_initial", "message_received_background", "message_received", "logged_in",
                           "info_notify", "error_notify", "email_notify"}) {
        const QList<ZepaField> config = method.getDefaultNotificationConfig(QString::fromLatin1(id));
        ASSERT_EQ(config.size(), 1) << id;
        EXPECT_EQ(config.first().getId(), QStringLiteral("sticky")) << id;
        EXPECT_FALSE(config.first().isChecked()) << id;
    }
    for (const char* id : {"message_sent", "alert_received_notify", "buddy_connected", "typing_started_notify"})
        EXPECT_EQ(method.getDefaultNotificationConfig(QString::fromLatin1(id)).first().getType(), 0) << id;
}

TEST_F(HintRegistration, OfOneTypeGoesThroughTheRegistrationOfAllThatADerivedMethodHas)
{
    class Derived : public ZepaHintNotificationMethod
    {
    public:
        void registerNotifications(const QList<ZepaNotification*>& notifications) override
        {
            sizes.append(notifications.size());
        }
        QList<qsizetype> sizes;
    };
    module().registerNotification(QStringLiteral("one"), QStringLiteral("One"), QString(), QString());
    Derived derived;
    derived.registerNotification(nullptr);
    EXPECT_EQ(derived.sizes, QList<qsizetype>({1}));
}

TEST_F(HintRegistration, NamesTheMethod)
{
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(method.getId(), QStringLiteral("zepa_hint_notification"));
    EXPECT_EQ(method.getActionName(), QStringLiteral("Display a Growl notification"));
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(HintRegistration, TranslatesItsTextsUnderTheirContextsAndComments)
{
    const MarkingTranslator::Installed translator;
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(method.getActionName(), QStringLiteral("Display a Growl notification|translation|growl - Mac OS X system "
                                                     "wide notification method"));
    EXPECT_EQ(method.fields.first().getLabel(),
              QStringLiteral("Sticky|translation|sticky notification, stays visible until user accepts it"));
}

// An array that nothing reads, fills or releases: this is odd and meant.
TEST_F(HintRegistration, MakesOneIdleArrayAndNeverReleasesIt)
{
    mutableArrays.clear();
    {
        ZepaHintNotificationMethod method;
        method.registerNotifications({});
    }
    ASSERT_EQ(mutableArrays.size(), 1);
    EXPECT_EQ(CFArrayGetCount(mutableArrays.first()), 0);
    EXPECT_EQ(CFGetRetainCount(mutableArrays.first()), 1);
}
