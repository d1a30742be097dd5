// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// What takes more than linear time or memory here does not end within the time that a test has.

namespace {

#ifdef __SANITIZE_ADDRESS__
// Every step costs several times as much then, and a stack overflows at far fewer levels.
constexpr qsizetype million = 200000;
#else
constexpr qsizetype million = 1000000;
#endif

ZepaXmlNode read(const QByteArray& xml)
{
    ZepaXmlNode node({}, {}, nullptr);
    node.setContent(xml);
    return node;
}

qsizetype depthOf(ZepaXmlNode node)
{
    qsizetype depth = 1;
    for (; node.hasChildNodes(); ++depth)
        node = node.getChildNodes().constFirst();
    return depth;
}

TEST(HostileXml, AMillionLevelsAreReadAndWrittenBack)
{
    const ZepaXmlNode node = read(QByteArray("<a>").repeated(million) + QByteArray("</a>").repeated(million));
    ASSERT_FALSE(node.isNull());
    const QByteArray xml = node.toByteArray(-1);
    EXPECT_EQ(depthOf(read(xml)), million);
    EXPECT_LT(node.toByteArray(8).size(), 600 * 2 * million);
}

TEST(HostileXml, AMillionLevelsThatAreNotClosedAreNull)
{
    EXPECT_TRUE(read(QByteArray("<a>").repeated(million)).isNull());
}

TEST(HostileXml, AMillionLevelsAreBuiltAndTakenDownFromBothEnds)
{
    ZepaXmlNode top(u"a"_s, {}, nullptr);
    ZepaXmlNode bottom = top;
    for (qsizetype i = 1; i < million; ++i)
        bottom = bottom.addChild(u"a"_s, {});
    EXPECT_EQ(depthOf(top), million);

    ZepaXmlNode tree(u"b"_s, {}, nullptr);
    for (qsizetype i = 1; i < million; ++i) {
        ZepaXmlNode above(u"b"_s, {}, nullptr);
        above.appendChild(tree);
        tree = above;
    }
    EXPECT_EQ(depthOf(tree), million);
    bottom.appendChild(tree);
    bottom = ZepaXmlNode({}, {}, nullptr);
    tree = ZepaXmlNode({}, {}, nullptr);
    EXPECT_EQ(depthOf(top), 2 * million);
}

TEST(HostileXml, AMillionChildrenKeepTheirOrder)
{
    const ZepaXmlNode node = read("<r>" + QByteArray("<a/>x<b/>").repeated(million / 2) + "</r>");
    const QList<ZepaXmlNode> children = node.getChildNodes();
    ASSERT_EQ(children.size(), million);
    EXPECT_EQ(children.constLast().name(), u"b"_s);
    EXPECT_EQ(node.text().size(), million / 2);
}

TEST(HostileXml, TwentyMegabytesOfTextComeBack)
{
    const QString text = QString(20 * million, u'x') + QString(100000, QChar(0xD800));
    ZepaXmlNode node(u"r"_s, text, nullptr);
    node.setAttribute(u"a"_s, text);
    const ZepaXmlNode back = read(node.toByteArray(-1));
    EXPECT_TRUE(back.text() == text);
    EXPECT_TRUE(back.getAttribute(u"a"_s) == text);
}

TEST(HostileXml, EntitiesOfTheDocumentAreNotExpanded)
{
    QByteArray bomb = "<!DOCTYPE r [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 30; ++i)
        bomb += "<!ENTITY a" + QByteArray::number(i) + " '" +
                QByteArray("&a" + QByteArray::number(i - 1) + ";").repeated(10) + "'>";
    bomb += "]><r>&a29;</r>";
    EXPECT_TRUE(read(bomb).isNull());

    // Each entity within the reader's own limit, and very many of them.
    const QByteArray flat = "<!DOCTYPE r [<!ENTITY a '" + QByteArray(4000, 'x') + "'>]><r>" +
                            QByteArray("&a;").repeated(2 * million) + "</r>";
    EXPECT_TRUE(read(flat).isNull());
    const QByteArray inDeclaration = "<!DOCTYPE r [<!ENTITY % a '" + QByteArray(4000, ' ') + "'>" +
                                     QByteArray("%a;").repeated(2 * million) + "]><r/>";
    EXPECT_TRUE(read(inDeclaration).isNull());
}

TEST(HostileXml, DefaultAttributesOfTheDocumentAreNotAdded)
{
    QByteArray bomb = "<!DOCTYPE r [<!ATTLIST a";
    for (int i = 0; i < 20000; ++i)
        bomb += " x" + QByteArray::number(i) + " CDATA 'v'";
    bomb += ">]><r>" + QByteArray("<a/>").repeated(million) + "</r>";
    EXPECT_TRUE(read(bomb).isNull());
}

TEST(HostileXml, AnElementHasAtMost256Attributes)
{
    const auto element = [](int count) {
        QByteArray xml = "<r";
        for (int i = 0; i < count; ++i)
            xml += " a" + QByteArray::number(i) + "='>'";
        return xml + "/>";
    };
    EXPECT_EQ(read(element(256)).getAttribute(u"a255"_s), u">"_s);
    EXPECT_TRUE(read(element(257)).isNull());
    EXPECT_TRUE(read(element(million)).isNull());
    const QString wide = QString::fromLatin1(element(300000));
    EXPECT_TRUE(read("\xFF\xFE" + QByteArray(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2)).isNull());
}

TEST(HostileXml, MarkupWithoutAnEndIsNull)
{
    for (const char* start : {"<!--", "<![CDATA[", "<?", "<a b='", "<a b=\"", "<"})
        EXPECT_TRUE(read(QByteArray(start).repeated(million)).isNull()) << start;
    EXPECT_TRUE(read(QByteArray(20 * million, '<')).isNull());
    EXPECT_TRUE(read(QByteArray(20 * million, '\0')).isNull());
    EXPECT_TRUE(read(QByteArray(20 * million, '\xFF')).isNull());
}

} // namespace
