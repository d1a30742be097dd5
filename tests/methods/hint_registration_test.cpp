// SPDX-License-Identifier: Apache-2.0
#include "marking_translator.h"
#include "methods/hint_notification_method.h"
#include "module_test.h"

#include <dlfcn.h>

using namespace Qt::StringLiterals;

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
    const QStringList firstNames{u"message_received_initial"_s, u"message_received_background"_s,
                                 u"message_received"_s};
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
    EXPECT_EQ(RecordingGrowl::toQString(delegate->applicationName), u"Zepa"_s);
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
    module().registerNotification(u"one"_s, u"First"_s, u"extra"_s, u"description"_s);
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({u"First"_s}));
    module().registerNotification(u"two"_s, u"Second"_s, QString(), QString());
    EXPECT_EQ(sorted(RecordingGrowl::registrations.last()), QStringList({u"First"_s, u"Second"_s}));
}

TEST_F(HintRegistration, HoldsTheModulesFullListWhicheverTypeIsGiven)
{
    registerType(u"one"_s);
    ZepaNotification stranger(u"id"_s, u"Stranger"_s, QString(), QString());
    const qsizetype before = RecordingGrowl::registrations.size();
    hnminstance->registerNotification(&stranger);
    hnminstance->registerNotification(nullptr);
    ASSERT_EQ(RecordingGrowl::registrations.size(), before + 2);
    EXPECT_EQ(RecordingGrowl::registrations.at(before), QStringList({u"Name of one"_s}));
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({u"Name of one"_s}));
}

TEST_F(HintRegistration, HoldsExactlyTheGivenTypesInTheirOrder)
{
    ZepaHintNotificationMethod method;
    ZepaNotification b(u"1"_s, u"B"_s, QString(), QString());
    ZepaNotification a(u"2"_s, u"A"_s, QString(), QString());
    method.registerNotifications({&b, &a});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({u"B"_s, u"A"_s}));
    method.registerNotifications({});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList());
}

TEST_F(HintRegistration, TakesATypeWithoutANameForOneWithAnEmptyName)
{
    ZepaHintNotificationMethod method;
    ZepaNotification nameless(u"1"_s, QString(), QString(), QString());
    method.registerNotifications({&nameless});
    EXPECT_EQ(RecordingGrowl::registrations.last(), QStringList({u""_s}));
}

TEST_F(HintRegistration, GivesUpWhatTheLastOneOwned)
{
    ZepaHintNotificationMethod method;
    ZepaNotification one(u"1"_s, u"One"_s, QString(), QString());
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
        ZepaNotification one(u"1"_s, u"One"_s, QString(), QString());
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
    EXPECT_EQ(method.fields.first().getId(), u"sticky"_s);
    EXPECT_EQ(method.fields.first().getType(), ZepaField::CheckBox);
    EXPECT_EQ(method.fields.first().getLabel(), u"Sticky"_s);
    EXPECT_FALSE(method.fields.first().isChecked());
    for (const char* id : {"message_received_initial", "message_received_background", "message_received", "logged_in",
                           "info_notify", "error_notify", "email_notify"}) {
        const QList<ZepaField> config = method.getDefaultNotificationConfig(QString::fromLatin1(id));
        ASSERT_EQ(config.size(), 1) << id;
        EXPECT_EQ(config.first().getId(), u"sticky"_s) << id;
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
    module().registerNotification(u"one"_s, u"One"_s, QString(), QString());
    Derived derived;
    derived.registerNotification(nullptr);
    EXPECT_EQ(derived.sizes, QList<qsizetype>({1}));
}

TEST_F(HintRegistration, NamesTheMethod)
{
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(method.getId(), u"zepa_hint_notification"_s);
    EXPECT_EQ(method.getActionName(), u"Display a Growl notification"_s);
    EXPECT_TRUE(method.getActionIcon().isNull());
}

TEST_F(HintRegistration, TranslatesItsTextsUnderTheirContextsAndComments)
{
    const MarkingTranslator::Installed translator;
    const ZepaHintNotificationMethod method;
    EXPECT_EQ(method.getActionName(), u"Display a Growl notification|translation|growl - Mac OS X system "
                                      u"wide notification method"_s);
    EXPECT_EQ(method.fields.first().getLabel(),
              u"Sticky|translation|sticky notification, stays visible until user accepts it"_s);
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
