// SPDX-License-Identifier: Apache-2.0
#include "corefoundation_support.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr CFAllocatorRef allocator = nullptr;

template <std::size_t Size>
CFArrayRef newArray(std::array<const void*, Size> values, const CFArrayCallBacks* callBacks = &kCFTypeArrayCallBacks)
{
    return CFArrayCreate(allocator, values.data(), static_cast<CFIndex>(Size), callBacks);
}

template <std::size_t Size>
CFDictionaryRef newDictionary(std::array<const void*, Size> keys, std::array<const void*, Size> values)
{
    return CFDictionaryCreate(allocator, keys.data(), values.data(), static_cast<CFIndex>(Size),
                              &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
}

} // namespace

// Misuse is what some of these tests are about, and what the analyzer finds there.
// NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)

TEST(CFData, HoldsACopyOfTheBytes)
{
    std::string bytes("a\0b", 3);
    const OwnedData data(newData(bytes));
    bytes[0] = 'x';
    EXPECT_EQ(CFDataGetLength(data.get()), 3);
    EXPECT_EQ(bytesOf(data.get()), (std::vector<UInt8>{'a', 0, 'b'}));
}

TEST(CFData, MayBeEmpty)
{
    const OwnedData data(CFDataCreate(allocator, nullptr, 0));
    EXPECT_EQ(CFDataGetLength(data.get()), 0);
}

TEST(CFData, ComparesBytes)
{
    const OwnedData one(newData("a"));
    const OwnedData same(newData("a"));
    const OwnedData other(newData("b"));
    EXPECT_TRUE(CFEqual(one.get(), same.get()));
    EXPECT_FALSE(CFEqual(one.get(), other.get()));
    EXPECT_EQ(CFHash(one.get()), CFHash(same.get()));
}

TEST(CFDataDeathTest, TrapsOnANegativeLengthOrNoBytes)
{
    const UInt8 byte = 0;
    EXPECT_DEATH(CFDataCreate(allocator, &byte, -1), "CFDataCreate");
    EXPECT_DEATH(CFDataCreate(allocator, nullptr, 1), "CFDataCreate");
    EXPECT_DEATH(CFDataGetBytePtr(nullptr), "CFDataGetBytePtr");
}

TEST(CFArray, KeepsTheOrder)
{
    const OwnedArray array(newArray<3>({CFSTR("a"), CFSTR("b"), CFSTR("a")}));
    ASSERT_EQ(CFArrayGetCount(array.get()), 3);
    EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 0), CFSTR("a"));
    EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 1), CFSTR("b"));
    EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 2), CFSTR("a"));
}

TEST(CFArray, RetainsWithTheStandardCallBacksUntilItGoes)
{
    const OwnedString string(newString(u"a"));
    {
        const OwnedArray array(newArray<2>({string.get(), string.get()}));
        EXPECT_EQ(CFGetRetainCount(string.get()), 3);
        EXPECT_EQ(CFGetRetainCount(CFArrayGetValueAtIndex(array.get(), 0)), 3);
    }
    EXPECT_EQ(CFGetRetainCount(string.get()), 1);
}

TEST(CFArray, KeepsBareAddressesWithoutCallBacks)
{
    const OwnedString string(newString(u"a"));
    const OwnedString equal(newString(u"a"));
    const OwnedArray array(newArray<2>({string.get(), nullptr}, nullptr));
    const OwnedArray other(newArray<2>({equal.get(), nullptr}, nullptr));
    const OwnedArray same(newArray<2>({string.get(), nullptr}, nullptr));
    EXPECT_EQ(CFGetRetainCount(string.get()), 1);
    EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 1), nullptr);
    EXPECT_FALSE(CFEqual(array.get(), other.get()));
    EXPECT_TRUE(CFEqual(array.get(), same.get()));
}

TEST(CFArray, IsFilledByNobodyWhenItIsEmpty)
{
    const OwnedArray array(CFArrayCreate(allocator, nullptr, 0, &kCFTypeArrayCallBacks));
    EXPECT_EQ(CFArrayGetCount(array.get()), 0);
}

TEST(CFArray, ComparesValuesInOrder)
{
    const OwnedString a(newString(u"a"));
    const OwnedArray one(newArray<2>({a.get(), CFSTR("b")}));
    const OwnedArray same(newArray<2>({CFSTR("a"), CFSTR("b")}));
    const OwnedArray turned(newArray<2>({CFSTR("b"), CFSTR("a")}));
    const OwnedArray shorter(newArray<1>({CFSTR("a")}));
    EXPECT_TRUE(CFEqual(one.get(), same.get()));
    EXPECT_EQ(CFHash(one.get()), CFHash(same.get()));
    EXPECT_FALSE(CFEqual(one.get(), turned.get()));
    EXPECT_FALSE(CFEqual(one.get(), shorter.get()));
}

TEST(CFArray, WithCapacity0GrowsFreely)
{
    const Owned<CFMutableArrayRef> array(CFArrayCreateMutable(allocator, 0, &kCFTypeArrayCallBacks));
    EXPECT_EQ(CFArrayGetCount(array.get()), 0);
    const OwnedString string(newString(u"a"));
    for (int i = 0; i < 100; ++i)
        CFArrayAppendValue(array.get(), string.get());
    EXPECT_EQ(CFArrayGetCount(array.get()), 100);
    EXPECT_EQ(CFGetRetainCount(string.get()), 101);
    EXPECT_EQ(CFGetRetainCount(array.get()), 1);
}

TEST(CFArray, TakesItsCapacityAsAHint)
{
    const Owned<CFMutableArrayRef> array(CFArrayCreateMutable(allocator, 1, nullptr));
    CFArrayAppendValue(array.get(), CFSTR("a"));
    CFArrayAppendValue(array.get(), CFSTR("b"));
    EXPECT_EQ(CFArrayGetCount(array.get()), 2);
}

TEST(CFArrayDeathTest, TrapsOnANullValueAmongObjects)
{
    EXPECT_DEATH(newArray<1>({nullptr}), "CFRetain");
    const Owned<CFMutableArrayRef> array(CFArrayCreateMutable(allocator, 0, &kCFTypeArrayCallBacks));
    EXPECT_DEATH(CFArrayAppendValue(array.get(), nullptr), "CFRetain");
}

TEST(CFArrayDeathTest, TrapsOnAnIndexOutOfBounds)
{
    const OwnedArray array(newArray<1>({CFSTR("a")}));
    EXPECT_DEATH(CFArrayGetValueAtIndex(array.get(), 1), "CFArrayGetValueAtIndex");
    EXPECT_DEATH(CFArrayGetValueAtIndex(array.get(), -1), "CFArrayGetValueAtIndex");
}

TEST(CFArrayDeathTest, TrapsOnImpossibleSizes)
{
    const void* values[] = {CFSTR("a")};
    EXPECT_DEATH(CFArrayCreate(allocator, values, -1, nullptr), "CFArrayCreate");
    EXPECT_DEATH(CFArrayCreate(allocator, nullptr, 1, nullptr), "CFArrayCreate");
    EXPECT_DEATH(CFArrayCreateMutable(allocator, -1, nullptr), "CFArrayCreateMutable");
}

TEST(CFArrayDeathTest, TrapsOnAChangeOfAnImmutableArray)
{
    const OwnedArray array(newArray<1>({CFSTR("a")}));
    EXPECT_DEATH(CFArrayAppendValue(const_cast<CFMutableArrayRef>(array.get()), CFSTR("b")), "CFArrayAppendValue");
}

TEST(CFArrayDeathTest, TrapsWhenItsLastReleaseReleasesItAgain)
{
    // The array's values are given up with it, and it is one of them, without a reference of its own.
    CFArrayCallBacks releaseOnly = kCFTypeArrayCallBacks;
    releaseOnly.retain = nullptr;
    EXPECT_DEATH(
        {
            const CFMutableArrayRef array = CFArrayCreateMutable(allocator, 0, &releaseOnly);
            CFArrayAppendValue(array, array);
            CFRelease(array);
        },
        "CFRelease");
}

TEST(CFDictionary, FindsAValueByAnEqualKey)
{
    const OwnedDictionary dictionary(newDictionary<2>({CFSTR("a"), CFSTR("b")}, {CFSTR("1"), CFSTR("2")}));
    const OwnedString key(newString(u"b"));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 2);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), key.get()), CFSTR("2"));
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), CFSTR("c")), nullptr);
}

TEST(CFDictionary, KeepsTheFirstOfTwoEqualKeys)
{
    const OwnedString first(newString(u"a"));
    const OwnedString second(newString(u"a"));
    const OwnedDictionary dictionary(newDictionary<2>({first.get(), second.get()}, {CFSTR("1"), CFSTR("2")}));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 1);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), second.get()), CFSTR("1"));
    EXPECT_EQ(CFGetRetainCount(first.get()), 2);
    EXPECT_EQ(CFGetRetainCount(second.get()), 1);
}

TEST(CFDictionary, RetainsKeysAndValuesUntilItGoes)
{
    const OwnedString key(newString(u"a"));
    const OwnedString value(newString(u"b"));
    {
        const OwnedDictionary dictionary(newDictionary<1>({key.get()}, {value.get()}));
        EXPECT_EQ(CFGetRetainCount(key.get()), 2);
        EXPECT_EQ(CFGetRetainCount(value.get()), 2);
    }
    EXPECT_EQ(CFGetRetainCount(key.get()), 1);
    EXPECT_EQ(CFGetRetainCount(value.get()), 1);
}

TEST(CFDictionary, OwnsAnArrayWhoseCreatorGaveItUp)
{
    const OwnedString name(newString(u"name"));
    const CFArrayRef names = newArray<1>({name.get()});
    const OwnedDictionary dictionary(newDictionary<1>({CFSTR("AllNotifications")}, {names}));
    CFRelease(names);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), CFSTR("AllNotifications")), names);
    EXPECT_EQ(CFGetRetainCount(names), 1);
}

TEST(CFDictionary, KeepsBareAddressesWithoutCallBacks)
{
    const OwnedString key(newString(u"a"));
    const OwnedString equal(newString(u"a"));
    const void* keys[] = {key.get()};
    const void* values[] = {nullptr};
    const OwnedDictionary dictionary(CFDictionaryCreate(allocator, keys, values, 1, nullptr, nullptr));
    EXPECT_EQ(CFGetRetainCount(key.get()), 1);
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 1);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), equal.get()), nullptr);
}

TEST(CFDictionary, ComparesEntriesInAnyOrder)
{
    const OwnedDictionary one(newDictionary<2>({CFSTR("a"), CFSTR("b")}, {CFSTR("1"), CFSTR("2")}));
    const OwnedDictionary turned(newDictionary<2>({CFSTR("b"), CFSTR("a")}, {CFSTR("2"), CFSTR("1")}));
    const OwnedDictionary otherValue(newDictionary<2>({CFSTR("a"), CFSTR("b")}, {CFSTR("1"), CFSTR("3")}));
    const OwnedDictionary otherKey(newDictionary<2>({CFSTR("a"), CFSTR("c")}, {CFSTR("1"), CFSTR("2")}));
    const OwnedDictionary fewer(newDictionary<1>({CFSTR("a")}, {CFSTR("1")}));
    EXPECT_TRUE(CFEqual(one.get(), turned.get()));
    EXPECT_EQ(CFHash(one.get()), CFHash(turned.get()));
    EXPECT_FALSE(CFEqual(one.get(), otherValue.get()));
    EXPECT_FALSE(CFEqual(one.get(), otherKey.get()));
    EXPECT_FALSE(CFEqual(one.get(), fewer.get()));
}

TEST(CFDictionaryDeathTest, TrapsOnANullKeyOrValueAmongObjects)
{
    EXPECT_DEATH(newDictionary<1>({nullptr}, {CFSTR("1")}), "CFRetain");
    EXPECT_DEATH(newDictionary<1>({CFSTR("a")}, {nullptr}), "CFRetain");
    const OwnedDictionary dictionary(newDictionary<1>({CFSTR("a")}, {CFSTR("1")}));
    EXPECT_DEATH(CFDictionaryGetValue(dictionary.get(), nullptr), "CFEqual");
}

TEST(CFDictionaryDeathTest, TrapsOnImpossibleSizes)
{
    const void* values[] = {CFSTR("a")};
    EXPECT_DEATH(CFDictionaryCreate(allocator, values, values, -1, nullptr, nullptr), "CFDictionaryCreate");
    EXPECT_DEATH(CFDictionaryCreate(allocator, nullptr, values, 1, nullptr, nullptr), "CFDictionaryCreate");
    EXPECT_DEATH(CFDictionaryCreate(allocator, values, nullptr, 1, nullptr, nullptr), "CFDictionaryCreate");
}

// NOLINTEND(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)
