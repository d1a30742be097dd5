// SPDX-License-Identifier: Apache-2.0
#include "corefoundation_support.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <thread>

namespace {

/// The whole beginning of the message: a sanitizer's report would name the function too.
std::string trapIn(const std::string& function)
{
    return "CoreFoundation: " + function + " was called";
}

std::string shown(CFTypeRef object)
{
    testing::internal::CaptureStderr();
    CFShow(object);
    return testing::internal::GetCapturedStderr();
}

} // namespace

// Misuse is what some of these tests are about, and what the analyzer finds there.
// NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)

TEST(CFObject, IsCreatedWithOneReference)
{
    const OwnedString string(newString(u"a"));
    const OwnedData data(newData("a"));
    EXPECT_EQ(CFGetRetainCount(string.get()), 1);
    EXPECT_EQ(CFGetRetainCount(data.get()), 1);
}

TEST(CFObject, CountsRetainsAndReleases)
{
    const OwnedString string(newString(u"a"));
    EXPECT_EQ(CFRetain(string.get()), string.get());
    EXPECT_EQ(CFGetRetainCount(string.get()), 2);
    CFRelease(string.get());
    EXPECT_EQ(CFGetRetainCount(string.get()), 1);
}

TEST(CFObject, CountsReferencesFromSeveralThreads)
{
    const OwnedString string(newString(u"a"));
    const auto retainAndRelease = [&string] {
        for (int i = 0; i < 1000; ++i) {
            CFRetain(string.get());
            CFRelease(string.get());
        }
    };
    std::thread other(retainAndRelease);
    retainAndRelease();
    other.join();
    EXPECT_EQ(CFGetRetainCount(string.get()), 1);
}

TEST(CFObject, KnowsItsType)
{
    const OwnedString string(newString(u"a"));
    const OwnedData data(newData("a"));
    const OwnedArray array(CFArrayCreate(nullptr, nullptr, 0, &kCFTypeArrayCallBacks));
    const OwnedDictionary dictionary(CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(CFGetTypeID(string.get()), CFStringGetTypeID());
    EXPECT_EQ(CFGetTypeID(data.get()), CFDataGetTypeID());
    EXPECT_EQ(CFGetTypeID(array.get()), CFArrayGetTypeID());
    EXPECT_EQ(CFGetTypeID(dictionary.get()), CFDictionaryGetTypeID());
    EXPECT_NE(CFStringGetTypeID(), CFDataGetTypeID());
}

TEST(CFObject, EqualsNothingOfAnotherType)
{
    const OwnedString string(newString(u""));
    const OwnedData data(newData(""));
    EXPECT_FALSE(CFEqual(string.get(), data.get()));
}

TEST(CFConstant, IsOneObjectForOneText)
{
    EXPECT_EQ(CFSTR("same"), CFSTR("same"));
    EXPECT_NE(CFSTR("same"), CFSTR("other"));
    EXPECT_EQ(textOf(CFSTR("same")), u"same");
    EXPECT_EQ(CFStringGetLength(CFSTR("")), 0);
}

TEST(CFConstant, TakesNoNoticeOfRetainAndRelease)
{
    const CFStringRef constant = CFSTR("constant");
    CFRelease(constant);
    CFRelease(constant);
    EXPECT_EQ(CFRetain(constant), constant);
    EXPECT_EQ(CFGetRetainCount(constant), std::numeric_limits<CFIndex>::max());
    EXPECT_EQ(textOf(constant), u"constant");
}

TEST(CFConstant, EqualsAStringOfTheSameUnits)
{
    const OwnedString string(newString(u"42"));
    EXPECT_TRUE(CFEqual(CFSTR("42"), string.get()));
    EXPECT_EQ(CFHash(CFSTR("42")), CFHash(string.get()));
}

TEST(CFConstantDeathTest, IsAsciiOnly)
{
    EXPECT_DEATH(CFSTR("\xc3\xa9"), trapIn("CFSTR"));
}

TEST(CFShow, PrintsABareText)
{
    EXPECT_EQ(shown(CFSTR("two\twords")), "two\twords\n");
    EXPECT_EQ(shown(CFSTR("")), "\n");
}

TEST(CFShow, PrintsUnitsBeyondAsciiByTheirNumbers)
{
    const OwnedString string(newString(u"\u00e9~\x7f\u0080\U0001f600"));
    EXPECT_EQ(shown(string.get()), "\\u00e9~\x7f\\u0080\\ud83d\\ude00\n");
}

TEST(CFShow, PrintsNullAsSuch)
{
    EXPECT_EQ(shown(nullptr), "(null)\n");
}

TEST(CFShow, SaysWhatACollectionOrDataIs)
{
    const OwnedData data(newData("\x01\xab"));
    const void* values[] = {data.get()};
    const OwnedArray array(CFArrayCreate(nullptr, values, 1, &kCFTypeArrayCallBacks));
    const OwnedDictionary dictionary(CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(shown(data.get()), "<01ab>\n");
    EXPECT_EQ(shown(array.get()), "array of 1\n");
    EXPECT_EQ(shown(dictionary.get()), "dictionary of 0\n");
}

TEST(CFObjectDeathTest, TrapsWhereNullIsNoObject)
{
    EXPECT_DEATH(CFRetain(nullptr), trapIn("CFRetain"));
    EXPECT_DEATH(CFRelease(nullptr), trapIn("CFRelease"));
    EXPECT_DEATH(CFGetRetainCount(nullptr), trapIn("CFGetRetainCount"));
    EXPECT_DEATH(CFGetTypeID(nullptr), trapIn("CFGetTypeID"));
    EXPECT_DEATH(CFHash(nullptr), trapIn("CFHash"));
    EXPECT_DEATH(CFEqual(nullptr, CFSTR("a")), trapIn("CFEqual"));
    EXPECT_DEATH(CFEqual(CFSTR("a"), nullptr), trapIn("CFEqual"));
    EXPECT_DEATH(CFEqual(nullptr, nullptr), trapIn("CFEqual"));
}

TEST(CFObjectDeathTest, TrapsOnAReferenceGivenUpTwice)
{
    const CFStringRef string = newString(u"a");
    CFRelease(string);
    EXPECT_DEATH(CFRelease(string), trapIn("CFRelease"));
    EXPECT_DEATH(CFRetain(string), trapIn("CFRetain"));
    EXPECT_DEATH(CFShow(string), trapIn("CFShow"));
    EXPECT_DEATH(CFStringGetLength(string), trapIn("CFStringGetLength"));
}

TEST(CFObjectDeathTest, TrapsOnWhatNeverWasAnObject)
{
    const int number = 0;
    EXPECT_DEATH(CFRetain(&number), trapIn("CFRetain"));
}

TEST(CFObjectDeathTest, TrapsOnAnObjectOfAnotherType)
{
    const OwnedData data(newData("a"));
    const CFTypeRef notAString = data.get();
    EXPECT_DEATH(CFStringGetLength(static_cast<CFStringRef>(notAString)), trapIn("CFStringGetLength"));
    EXPECT_DEATH(CFArrayGetCount(static_cast<CFArrayRef>(notAString)), trapIn("CFArrayGetCount"));
    EXPECT_DEATH(CFDictionaryGetCount(static_cast<CFDictionaryRef>(notAString)), trapIn("CFDictionaryGetCount"));
    const CFTypeRef notData = CFSTR("a");
    EXPECT_DEATH(CFDataGetLength(static_cast<CFDataRef>(notData)), trapIn("CFDataGetLength"));
}

// NOLINTEND(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)
