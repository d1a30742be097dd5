// SPDX-License-Identifier: Apache-2.0
#include "corefoundation_support.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <optional>

namespace {

CFPropertyListRef parse(std::string_view xml, CFStringRef* error)
{
    const OwnedData data(newData(xml));
    return CFPropertyListCreateFromXMLData(kCFAllocatorDefault, data.get(), kCFPropertyListImmutable, error);
}

/// The string that the list is; none when it is not read.
std::optional<std::u16string> read(std::string_view xml)
{
    CFStringRef error = nullptr;
    const Owned<CFPropertyListRef> list(parse(xml, &error));
    const OwnedString ownedError(error);
    EXPECT_EQ(list.get() == nullptr, error != nullptr) << "a list or an error, never both";
    if (list.get() == nullptr)
        return std::nullopt;
    return textOf(static_cast<CFStringRef>(list.get()));
}

std::u16string errorOf(std::string_view xml)
{
    CFStringRef error = nullptr;
    const Owned<CFPropertyListRef> list(parse(xml, &error));
    const OwnedString ownedError(error);
    EXPECT_EQ(list.get(), nullptr);
    return error == nullptr ? std::u16string() : textOf(error);
}

bool mentions(const std::u16string& text, std::u16string_view part)
{
    return text.find(part) != std::u16string::npos;
}

} // namespace

// Misuse is what some of these tests are about, and what the analyzer finds there.
// NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)

TEST(CFPropertyList, ReadsABareStringWithOneReference)
{
    CFStringRef error = CFSTR("whatever was here before");
    const Owned<CFPropertyListRef> list(parse("<string>42</string>", &error));
    ASSERT_NE(list.get(), nullptr);
    EXPECT_EQ(error, nullptr);
    EXPECT_TRUE(CFEqual(list.get(), CFSTR("42")));
    EXPECT_EQ(CFGetTypeID(list.get()), CFStringGetTypeID());
    EXPECT_EQ(CFGetRetainCount(list.get()), 1);
}

TEST(CFPropertyList, ReadsAWholeDocument)
{
    EXPECT_EQ(read("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                   "<plist version=\"1.0\">\n<string>42</string>\n</plist>\n"),
              u"42");
}

TEST(CFPropertyList, NeedsNoMoreThanOneOfTheWrappings)
{
    EXPECT_EQ(read("<?xml version=\"1.0\"?><string>42</string>"), u"42");
    EXPECT_EQ(read("<plist version=\"1.0\"><string>42</string></plist>"), u"42");
    EXPECT_EQ(read("<!-- a --> <string>42</string> <!-- b -->"), u"42");
}

TEST(CFPropertyList, KeepsBlanksAndReadsEntities)
{
    EXPECT_EQ(read("<string> a\t</string>"), u" a\t");
    EXPECT_EQ(read("<string>&lt;&amp;&gt;&quot;&apos;&#65;&#x20AC;</string>"), u"<&>\"'A\u20ac");
    EXPECT_EQ(read("<string><![CDATA[<b>]]></string>"), u"<b>");
    EXPECT_EQ(read("<string>\xc3\xa9</string>"), u"\u00e9");
}

TEST(CFPropertyList, ReadsAnEmptyString)
{
    EXPECT_EQ(read("<string></string>"), u"");
    EXPECT_EQ(read("<string/>"), u"");
}

TEST(CFPropertyList, NamesWhatItDoesNotRead)
{
    EXPECT_TRUE(mentions(errorOf("<array><string>42</string></array>"), u"\"array\""));
    EXPECT_TRUE(mentions(errorOf("<plist><integer>42</integer></plist>"), u"\"integer\""));
    EXPECT_TRUE(mentions(errorOf("<plist><plist><string>42</string></plist></plist>"), u"\"plist\""));
    EXPECT_TRUE(mentions(errorOf("<plist><string>42</string><true/></plist>"), u"\"true\""));
    EXPECT_TRUE(mentions(errorOf("<plist></plist>"), u"empty"));
}

TEST(CFPropertyList, HasAnErrorForWhatIsNoXml)
{
    for (const std::string_view xml :
         {"", " ", "42", "<string>42", "<string>42</strin>", "<string>4</string><string>2</string>",
          "<string>&x;</string>", "<string>a<b/></string>", "<string>\x80</string>", "<string>42</string>rest",
          "<plist><string>42</string>"})
        EXPECT_FALSE(errorOf(xml).empty()) << xml;
}

TEST(CFPropertyList, GivesTheErrorToTheCaller)
{
    CFStringRef error = nullptr;
    EXPECT_EQ(parse("nothing", &error), nullptr);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(CFGetRetainCount(error), 1);
    CFRelease(error);
}

TEST(CFPropertyList, NeedsNoPlaceForTheError)
{
    EXPECT_EQ(parse("nothing", nullptr), nullptr);
    const Owned<CFPropertyListRef> list(parse("<string>42</string>", nullptr));
    EXPECT_NE(list.get(), nullptr);
}

TEST(CFPropertyList, DoesNotGrowWithEntitiesThatMultiply)
{
    std::string bomb = "<!DOCTYPE plist [<!ENTITY e0 \"ha\">";
    for (int i = 1; i < 40; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        const QByteArray entity = "<!ENTITY e" + QByteArray::number(i) + " \"" + inner + inner + "\">";
        bomb.append(entity.constData());
    }
    bomb += "]><string>&e39;</string>";
    EXPECT_FALSE(errorOf(bomb).empty());
}

TEST(CFPropertyListDeathTest, TrapsWithoutData)
{
    CFStringRef error = nullptr;
    EXPECT_DEATH(CFPropertyListCreateFromXMLData(kCFAllocatorDefault, nullptr, kCFPropertyListImmutable, &error),
                 "CFPropertyListCreateFromXMLData");
}

// NOLINTEND(clang-analyzer-osx.cocoa.RetainCount,clang-analyzer-osx.coreFoundation.CFRetainRelease,clang-analyzer-osx.coreFoundation.containers.OutOfBounds)
