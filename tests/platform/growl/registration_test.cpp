// SPDX-License-Identifier: Apache-2.0
#include "growl/registration.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::growl::Registration;

namespace {

CFDictionaryRef dictionaryOf(CFTypeRef all)
{
    const void* keys[] = {CFSTR("AllNotifications")};
    const void* values[] = {all};
    return CFDictionaryCreate(nullptr, keys, values, 1, &kCFTypeDictionaryKeyCallBacks,
                              &kCFTypeDictionaryValueCallBacks);
}

CFMutableArrayRef arrayOf(CFStringRef name)
{
    const CFMutableArrayRef array = CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks);
    CFArrayAppendValue(array, name);
    return array;
}

} // namespace

TEST(Registration, EnablesNothingBeforeAnythingIsRegistered)
{
    const Registration registration;
    EXPECT_FALSE(registration.isSet());
    EXPECT_FALSE(registration.isEnabled(u"a"_s));
}

TEST(Registration, EnablesNothingWithoutADictionary)
{
    Growl_Delegate delegate{};
    Registration registration;
    registration.set(&delegate);
    EXPECT_TRUE(registration.isSet());
    EXPECT_FALSE(registration.isEnabled(u"a"_s));
    EXPECT_TRUE(registration.applicationName().isNull());
}

TEST(Registration, ReadsNamesThatWereAddedToTheSameArray)
{
    const CFMutableArrayRef names = arrayOf(CFSTR("a"));
    const CFDictionaryRef dictionary = dictionaryOf(names);
    Growl_Delegate delegate{};
    delegate.registrationDictionary = dictionary;
    Registration registration;
    registration.set(&delegate);
    CFArrayAppendValue(names, CFSTR("b"));
    EXPECT_FALSE(registration.isEnabled(u"b"_s));
    registration.set(&delegate);
    EXPECT_TRUE(registration.isEnabled(u"a"_s));
    EXPECT_TRUE(registration.isEnabled(u"b"_s));
    CFRelease(dictionary);
    CFRelease(names);
}

TEST(Registration, KeepsItsDictionaryAliveAndGivesItUpWhenWithdrawn)
{
    const CFMutableArrayRef names = arrayOf(CFSTR("a"));
    const CFDictionaryRef dictionary = dictionaryOf(names);
    Growl_Delegate delegate{};
    delegate.registrationDictionary = dictionary;
    Registration registration;
    registration.set(&delegate);
    registration.set(&delegate);
    EXPECT_EQ(CFGetRetainCount(dictionary), 2);
    registration.set(nullptr);
    EXPECT_EQ(CFGetRetainCount(dictionary), 1);
    EXPECT_FALSE(registration.isEnabled(u"a"_s));
    CFRelease(dictionary);
    CFRelease(names);
}

TEST(Registration, IgnoresWhatIsNoArrayAndNoName)
{
    const CFDictionaryRef noArray = dictionaryOf(CFSTR("a"));
    const CFMutableArrayRef names = arrayOf(CFSTR("a"));
    CFArrayAppendValue(names, noArray);
    const CFDictionaryRef mixed = dictionaryOf(names);
    Growl_Delegate delegate{};
    Registration registration;
    delegate.registrationDictionary = noArray;
    registration.set(&delegate);
    EXPECT_FALSE(registration.isEnabled(u"a"_s));
    delegate.registrationDictionary = mixed;
    registration.set(&delegate);
    EXPECT_TRUE(registration.isEnabled(u"a"_s));
    CFRelease(mixed);
    CFRelease(names);
    CFRelease(noArray);
}

TEST(Registration, CopiesTheApplicationsIcon)
{
    const UInt8 bytes[] = {1, 2, 3};
    const CFDataRef icon = CFDataCreate(nullptr, bytes, 3);
    Growl_Delegate delegate{};
    delegate.applicationIconData = icon;
    Registration registration;
    registration.set(&delegate);
    CFRelease(icon);
    EXPECT_EQ(registration.iconData(), QByteArray("\1\2\3"));
    registration.set(nullptr);
    EXPECT_TRUE(registration.iconData().isEmpty());
}
