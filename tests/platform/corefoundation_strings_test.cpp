// SPDX-License-Identifier: Apache-2.0
#include "corefoundation_support.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

using Bytes = std::vector<UInt8>;
constexpr bool external = true;

/// Null when the text has no representation.
struct Encoded
{
    Encoded(std::u16string_view text, CFStringEncoding encoding, UInt8 lossByte = 0)
        : string(newString(text))
        , data(CFStringCreateExternalRepresentation(kCFAllocatorDefault, string.get(), encoding, lossByte))
    {}
    bool exists() const { return data.get() != nullptr; }
    Bytes bytes() const { return bytesOf(data.get()); }

    const OwnedString string;
    const OwnedData data;
};

void expectDecoded(const Bytes& bytes, CFStringEncoding encoding, bool isExternal, const std::u16string& text)
{
    const OwnedString string(decoded(bytes, encoding, isExternal));
    ASSERT_NE(string.get(), nullptr);
    EXPECT_EQ(textOf(string.get()), text);
}

void expectUndecodable(const Bytes& bytes, CFStringEncoding encoding, bool isExternal = false)
{
    EXPECT_EQ(OwnedString(decoded(bytes, encoding, isExternal)).get(), nullptr);
}

} // namespace

// Misuse is what some of these tests are about, and what the analyzer finds there.
// NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)

TEST(CFString, KeepsSurrogatesAndNulAsTheyAre)
{
    const std::u16string text = {u'a', 0, 0xd83d, 0xde00, 0xdc00, 0xfffe};
    const OwnedString string(newString(text));
    EXPECT_EQ(CFStringGetLength(string.get()), 6);
    EXPECT_EQ(textOf(string.get()), text);
}

TEST(CFString, IsEmptyForNoBytes)
{
    const OwnedString string(CFStringCreateWithBytes(nullptr, nullptr, 0, kCFStringEncodingUnicode, 0));
    ASSERT_NE(string.get(), nullptr);
    EXPECT_EQ(CFStringGetLength(string.get()), 0);
}

TEST(CFString, ComparesUnitsWithoutNormalisation)
{
    const OwnedString composed(newString(u"\u00e9"));
    const OwnedString combined(newString(u"e\u0301"));
    const OwnedString again(newString(u"\u00e9"));
    EXPECT_FALSE(CFEqual(composed.get(), combined.get()));
    EXPECT_TRUE(CFEqual(composed.get(), again.get()));
    EXPECT_TRUE(CFEqual(composed.get(), composed.get()));
}

TEST(CFString, EqualsTheSameTextFromAnotherEncoding)
{
    const OwnedString fromUnicode(newString(u"caf\u00e9"));
    const OwnedString fromMacRoman(decoded({'c', 'a', 'f', 0x8e}, kCFStringEncodingMacRoman));
    const OwnedString fromUtf8(decoded({'c', 'a', 'f', 0xc3, 0xa9}, kCFStringEncodingUTF8));
    EXPECT_TRUE(CFEqual(fromUnicode.get(), fromMacRoman.get()));
    EXPECT_TRUE(CFEqual(fromUnicode.get(), fromUtf8.get()));
    EXPECT_EQ(CFHash(fromUnicode.get()), CFHash(fromMacRoman.get()));
}

TEST(CFString, HandsOutAPart)
{
    UniChar units[2] = {};
    CFStringGetCharacters(CFSTR("abcd"), CFRange{1, 2}, units);
    EXPECT_EQ(units[0], u'b');
    EXPECT_EQ(units[1], u'c');
    CFStringGetCharacters(CFSTR("abcd"), CFRange{4, 0}, units);
    EXPECT_EQ(units[0], u'b');
}

TEST(CFStringDeathTest, TrapsOnAPartThatIsNotThere)
{
    UniChar units[8] = {};
    EXPECT_DEATH(CFStringGetCharacters(CFSTR("abcd"), CFRange{3, 2}, units), "CFStringGetCharacters");
    EXPECT_DEATH(CFStringGetCharacters(CFSTR("abcd"), CFRange{5, 0}, units), "CFStringGetCharacters");
    EXPECT_DEATH(CFStringGetCharacters(CFSTR("abcd"), CFRange{-1, 1}, units), "CFStringGetCharacters");
    EXPECT_DEATH(CFStringGetCharacters(CFSTR("abcd"), CFRange{0, -1}, units), "CFStringGetCharacters");
}

TEST(CFStringDeathTest, TrapsOnANegativeSizeNoBytesOrNoString)
{
    const UInt8 byte = 'a';
    EXPECT_DEATH(CFStringCreateWithBytes(nullptr, &byte, -1, kCFStringEncodingASCII, 0), "CFStringCreateWithBytes");
    EXPECT_DEATH(CFStringCreateWithBytes(nullptr, nullptr, 1, kCFStringEncodingASCII, 0), "CFStringCreateWithBytes");
    EXPECT_DEATH(CFStringCreateExternalRepresentation(nullptr, nullptr, kCFStringEncodingASCII, 0),
                 "CFStringCreateExternalRepresentation");
}

TEST(CFStringUnicode, IsOfTheMachinesByteOrderWithinAProcess)
{
    if constexpr (std::endian::native == std::endian::little)
        expectDecoded({0x41, 0x00, 0xac, 0x20}, kCFStringEncodingUnicode, !external, u"A\u20ac");
    else
        expectDecoded({0x00, 0x41, 0x20, 0xac}, kCFStringEncodingUnicode, !external, u"A\u20ac");
}

TEST(CFStringUnicode, KeepsAMarkThatIsNoMarkWithinAProcess)
{
    const OwnedString string(newString(u"\ufeffa"));
    EXPECT_EQ(textOf(string.get()), u"\ufeffa");
}

TEST(CFStringUnicode, IsBigEndianOutsideWithoutAMark)
{
    expectDecoded({0x00, 0x41, 0x20, 0xac}, kCFStringEncodingUnicode, external, u"A\u20ac");
}

TEST(CFStringUnicode, FollowsTheMarkOutside)
{
    expectDecoded({0xfe, 0xff, 0x20, 0xac}, kCFStringEncodingUnicode, external, u"\u20ac");
    expectDecoded({0xff, 0xfe, 0xac, 0x20}, kCFStringEncodingUnicode, external, u"\u20ac");
}

TEST(CFStringUnicode, LeavesOutOneMarkOnly)
{
    expectDecoded({0xfe, 0xff, 0xfe, 0xff}, kCFStringEncodingUnicode, external, u"\ufeff");
    expectDecoded({0xfe, 0xff}, kCFStringEncodingUnicode, external, u"");
    expectDecoded({}, kCFStringEncodingUnicode, external, u"");
}

TEST(CFStringUnicode, HasNoHalfUnits)
{
    expectUndecodable({0x41, 0x00, 0x42}, kCFStringEncodingUnicode);
}

TEST(CFStringUnicode, GoesOutWithAMark)
{
    const Encoded encoded(u"A\u20ac", kCFStringEncodingUnicode);
    if constexpr (std::endian::native == std::endian::little)
        EXPECT_EQ(encoded.bytes(), (Bytes{0xff, 0xfe, 0x41, 0x00, 0xac, 0x20}));
    else
        EXPECT_EQ(encoded.bytes(), (Bytes{0xfe, 0xff, 0x00, 0x41, 0x20, 0xac}));
}

TEST(CFStringMacRoman, TakesAnyByteAndGivesItBack)
{
    Bytes all;
    for (unsigned byte = 0; byte <= 0xff; ++byte)
        all.push_back(static_cast<UInt8>(byte));
    const OwnedString string(decoded(all, kCFStringEncodingMacRoman));
    ASSERT_NE(string.get(), nullptr);
    EXPECT_EQ(CFStringGetLength(string.get()), 256);
    const OwnedData back(CFStringCreateExternalRepresentation(nullptr, string.get(), kCFStringEncodingMacRoman, 0));
    ASSERT_NE(back.get(), nullptr);
    EXPECT_EQ(bytesOf(back.get()), all);
}

TEST(CFStringMacRoman, HasTheCharactersOfItsTable)
{
    expectDecoded({0x80, 0x8e, 0xa5, 0xbd, 0xca, 0xd0, 0xdb, 0xf0, 0xff}, kCFStringEncodingMacRoman, !external,
                  u"\u00c4\u00e9\u2022\u03a9\u00a0\u2013\u20ac\uf8ff\u02c7");
}

TEST(CFStringMacRoman, GoesOutWithoutAMark)
{
    EXPECT_EQ(Encoded(u"<string>42</string>", kCFStringEncodingMacRoman).bytes().size(), 19U);
    EXPECT_EQ(Encoded(u"\u00c4b", kCFStringEncodingMacRoman).bytes(), (Bytes{0x80, 'b'}));
}

TEST(CFStringMacRoman, HasNoRepresentationOfWhatItLacks)
{
    EXPECT_FALSE(Encoded(u"\u4e2d", kCFStringEncodingMacRoman).exists());
    EXPECT_FALSE(Encoded(u"a\U0001f600", kCFStringEncodingMacRoman).exists());
}

TEST(CFStringMacRoman, PutsOneLossByteForEachCharacterThatItLacks)
{
    EXPECT_EQ(Encoded(u"a\u4e2d\U0001f600b", kCFStringEncodingMacRoman, '?').bytes(), (Bytes{'a', '?', '?', 'b'}));
    EXPECT_EQ(Encoded(std::u16string{0xd83d, u'a', 0xd83d}, kCFStringEncodingMacRoman, '?').bytes(),
              (Bytes{'?', 'a', '?'}));
}

TEST(CFStringAscii, EndsAt7Bits)
{
    expectDecoded({'a', 0x7f}, kCFStringEncodingASCII, !external, u"a\x7f");
    expectUndecodable({'a', 0x80}, kCFStringEncodingASCII);
    EXPECT_EQ(Encoded(u"ab", kCFStringEncodingASCII).bytes(), (Bytes{'a', 'b'}));
    EXPECT_FALSE(Encoded(u"\u00c4", kCFStringEncodingASCII).exists());
    EXPECT_EQ(Encoded(u"\u00c4b", kCFStringEncodingASCII, '?').bytes(), (Bytes{'?', 'b'}));
}

TEST(CFStringUtf8, GoesInAndOut)
{
    const Bytes bytes = {'a', 0, 0xc3, 0xa9, 0xe2, 0x82, 0xac, 0xf0, 0x9f, 0x98, 0x80};
    const std::u16string text = std::u16string(u"a") + char16_t(0) + u"\u00e9\u20ac\U0001f600";
    expectDecoded(bytes, kCFStringEncodingUTF8, !external, text);
    EXPECT_EQ(Encoded(text, kCFStringEncodingUTF8).bytes(), bytes);
}

TEST(CFStringUtf8, LeavesOutAMarkOutsideOnly)
{
    expectDecoded({0xef, 0xbb, 0xbf, 'a'}, kCFStringEncodingUTF8, external, u"a");
    expectDecoded({0xef, 0xbb, 0xbf, 'a'}, kCFStringEncodingUTF8, !external, u"\ufeffa");
}

TEST(CFStringUtf8, RefusesMalformedBytes)
{
    expectUndecodable({0x80}, kCFStringEncodingUTF8);
    expectUndecodable({'a', 0xc3}, kCFStringEncodingUTF8);
    expectUndecodable({0xc0, 0x80}, kCFStringEncodingUTF8);
    expectUndecodable({0xed, 0xa0, 0x80}, kCFStringEncodingUTF8);
    expectUndecodable({0xf4, 0x90, 0x80, 0x80}, kCFStringEncodingUTF8);
}

TEST(CFStringUtf8, HasNoPlaceForALoneSurrogate)
{
    const std::u16string text = {u'a', 0xd83d, u'b', 0xde00};
    EXPECT_FALSE(Encoded(text, kCFStringEncodingUTF8).exists());
    EXPECT_EQ(Encoded(text, kCFStringEncodingUTF8, '?').bytes(), (Bytes{'a', '?', 'b', '?'}));
}

TEST(CFStringEncodings, AreThoseListedOnly)
{
    constexpr CFStringEncoding unknown = 0x0201;
    expectUndecodable({'a'}, unknown);
    EXPECT_FALSE(Encoded(u"a", unknown, '?').exists());
}

// NOLINTEND(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)
