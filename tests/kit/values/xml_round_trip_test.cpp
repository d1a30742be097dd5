// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Where XML and its writers go wrong: what cannot be said, what is changed on the way, what is markup.
const char16_t strangeUnits[] = {0,      1,      8,      u'\t',  u'\n',  0xB,    u'\r',  0x1F,   u' ',   u'"',
                                 u'&',   u'\'',  u'<',   u'>',   u']',   u'?',   u'=',   u';',   u'a',   u'_',
                                 0x7F,   0x85,   0xA0,   0x2028, 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000,
                                 0xFDD0, 0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF, 0x10D,  0x4E2D};

QString strangeText(QRandomGenerator& random)
{
    QString text;
    for (int length = random.bounded(9); length > 0; --length)
        text += QChar(strangeUnits[random.bounded(static_cast<int>(std::size(strangeUnits)))]);
    return text;
}

void grow(ZepaXmlNode& node, QRandomGenerator& random, int depth)
{
    for (int count = random.bounded(3); count > 0; --count)
        node.setAttribute(u'x' + strangeText(random), strangeText(random));
    if (depth == 0)
        return;
    for (int count = random.bounded(4); count > 0; --count) {
        ZepaXmlNode child = node.addChild(u'n' + strangeText(random), strangeText(random));
        grow(child, random, depth - 1);
    }
}

/// Everything that can be asked of a tree, in one text.
QString inWords(const ZepaXmlNode& node)
{
    QString words = u"(%1|%2|"_s.arg(node.name(), node.text());
    const QList<ZepaXmlNode> children = node.getChildNodes();
    for (const ZepaXmlNode& child : children)
        words += inWords(child);
    return words + u')';
}

TEST(XmlRoundTrip, BringsBackEveryTree)
{
    QRandomGenerator random(1);
    for (int round = 0; round < 2000; ++round) {
        ZepaXmlNode tree(u'r' + strangeText(random), strangeText(random), nullptr);
        grow(tree, random, 3);
        for (const int indentation : {-1, 0, 3}) {
            const QByteArray xml = tree.toByteArray(indentation);
            ZepaXmlNode read({}, {}, nullptr);
            read.setContent(xml);
            ASSERT_EQ(inWords(read), inWords(tree)) << round << ' ' << xml.constData();
            // Attributes, too: the same tree makes the same bytes.
            ASSERT_EQ(read.toByteArray(indentation), xml) << round;
        }
    }
}

TEST(XmlRoundTrip, BringsBackEverySingleUnitInTextsAndAttributes)
{
    ZepaXmlNode tree(u"r"_s, {}, nullptr);
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        tree.addChild(u"n"_s, QString(QChar(unit))).setAttribute(u"a"_s, u'x' + QString(QChar(unit)) + u'y');
    ZepaXmlNode read({}, {}, nullptr);
    read.setContent(tree.toByteArray(-1));
    const QList<ZepaXmlNode> nodes = read.getChildNodes();
    ASSERT_EQ(nodes.size(), 0x10000);
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        ASSERT_EQ(nodes[unit].text(), QString(QChar(unit))) << unit;
        ASSERT_EQ(nodes[unit].getAttribute(u"a"_s), u'x' + QString(QChar(unit)) + u'y') << unit;
    }
}

TEST(XmlRoundTrip, KeepsPairsOfSurrogatesReadable)
{
    const ZepaXmlNode node(u"r"_s, u"\U0001F600\U0010FFFF\U0001FFFE"_s, nullptr);
    const QByteArray xml = node.toByteArray(-1);
    EXPECT_TRUE(xml.contains("\xF0\x9F\x98\x80")) << xml.constData();
    ZepaXmlNode read({}, {}, nullptr);
    read.setContent(xml);
    EXPECT_EQ(read.text(), node.text());
}

TEST(XmlRoundTrip, KeepsOrdinaryTextsAsOtherProgramsWouldWriteThem)
{
    ZepaXmlNode node(u"r"_s, u"C:\\x & <y>\n"_s, nullptr);
    node.setAttribute(u"a"_s, u"1\n\"2\""_s);
    const QByteArray xml = node.toByteArray(-1);
    EXPECT_FALSE(xml.contains("zepa-")) << xml.constData();
    EXPECT_TRUE(xml.contains("C:\\x &amp; &lt;y&gt;\n<")) << xml.constData();
}

TEST(XmlRoundTrip, WritesWhatXmlCannotSayAsInstructions)
{
    const ZepaXmlNode node(u"r"_s, u"a"_s + QChar(0xD800) + QChar(1) + u'b', nullptr);
    EXPECT_TRUE(node.toByteArray(-1).contains("<r>a<?zepa-text d800 1?>b</r>")) << node.toByteArray(-1).constData();
}

TEST(XmlRoundTrip, PassesOverInstructionsThatItDidNotWrite)
{
    ZepaXmlNode node({}, {}, nullptr);
    node.setContent(
        "<?zepa-text 61?><r><?zepa-text 61 x?><?zepa-text 61  62?><?zepa-text 10000?><?zepa-name ?>"
        "<?zepa-attribute 61?><?zepa-attribute =61?><?zepa-attribute x=61?><?other 61?></r><?zepa-name 61?>");
    EXPECT_EQ(node.name(), u"r"_s);
    EXPECT_TRUE(node.text().isEmpty());
    EXPECT_TRUE(node.getAttribute(u"a"_s).isNull());
}

} // namespace
