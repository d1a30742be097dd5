// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZepaXmlNode read(const QByteArray& xml)
{
    ZepaXmlNode node({}, {}, nullptr);
    node.setContent(xml);
    return node;
}

TEST(XmlNode, IsNullUntilItHasAName)
{
    ZepaXmlNode node({}, {}, nullptr);
    EXPECT_TRUE(node.isNull());
    EXPECT_TRUE(node.toByteArray(-1).isEmpty());
    node.setContent("<a/>");
    EXPECT_FALSE(node.isNull());
    EXPECT_EQ(node.name(), u"a"_s);
}

TEST(XmlNode, ReadsNamesTextsAttributesAndChildrenInOrder)
{
    const ZepaXmlNode node =
        read("<?xml version='1.0'?><!-- c --><r x='1' y='&lt;2'>be<b>one</b>fore<c/><b>two</b></r>");
    EXPECT_EQ(node.text(), u"before"_s);
    EXPECT_EQ(node.getAttribute(u"x"_s), u"1"_s);
    EXPECT_EQ(node.getAttribute(u"y"_s), u"<2"_s);
    EXPECT_TRUE(node.getAttribute(u"z"_s).isNull());
    const QList<ZepaXmlNode> children = node.getChildNodes();
    ASSERT_EQ(children.size(), 3);
    EXPECT_EQ(children[0].text(), u"one"_s);
    EXPECT_EQ(children[1].name(), u"c"_s);
    EXPECT_TRUE(children[1].text().isEmpty());
    EXPECT_EQ(children[2].text(), u"two"_s);
}

TEST(XmlNode, TakesBlanksBetweenElementsForLayout)
{
    const ZepaXmlNode node = read("<r>\n  <a> </a>\n  <b/>\n</r>");
    EXPECT_TRUE(node.text().isEmpty());
    EXPECT_EQ(node.getChildNodes().at(0).text(), u" "_s);
}

TEST(XmlNode, ReadsCommentsAndCharacterDataSections)
{
    const ZepaXmlNode node = read("<r><!-- \"' > < --><![CDATA[<x a=\"]]>b</r>");
    EXPECT_EQ(node.text(), u"<x a=\"b"_s);
    EXPECT_FALSE(node.hasChildNodes());
}

TEST(XmlNode, ReadsPrefixesThatNobodyDeclared)
{
    const ZepaXmlNode node = read("<p:r q:x='1' xmlns='u:v'/>");
    EXPECT_EQ(node.name(), u"p:r"_s);
    EXPECT_EQ(node.getAttribute(u"q:x"_s), u"1"_s);
    EXPECT_EQ(read(node.toByteArray(-1)).name(), u"p:r"_s);
}

TEST(XmlNode, ReadsOtherEncodings)
{
    const QString text = u"<r>gr\u00FC\u00DFe \U0001F600</r>"_s;
    const QString expected = u"gr\u00FC\u00DFe \U0001F600"_s;
    const QByteArray utf16(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read(text.toUtf8()).text(), expected);
    EXPECT_EQ(read("\xEF\xBB\xBF" + text.toUtf8()).text(), expected);
    EXPECT_EQ(read(utf16).text(), expected);
    EXPECT_EQ(read("\xFF\xFE" + utf16).text(), expected);
    EXPECT_EQ(read("<?xml version='1.0' encoding='ISO-8859-1'?><r>gr\xFC\xDF"
                   "e</r>")
                  .text(),
              u"gr\u00FC\u00DFe"_s);
}

TEST(XmlNode, IsNullAfterContentThatIsNotWellFormed)
{
    const QByteArray good = "<r><a>x</a></r>";
    ASSERT_FALSE(read(good).isNull());
    for (qsizetype length = 0; length < good.size(); ++length)
        EXPECT_TRUE(read(good.first(length)).isNull()) << length;
    for (const QByteArray& bad :
         {good + "x", good + good, good + "<", QByteArray("<r><a></r></a>"), QByteArray("<r a='1' a='2'/>"),
          QByteArray("<r>&nope;</r>"), QByteArray("<r>\x01</r>"), QByteArray("<r>\xFF\xFE</r>"), QByteArray("plain"),
          QByteArray("<r>", 3) + QByteArray(1, '\0') + "</r>", good + QByteArray(1, '\0'), QByteArray(" \n"),
          QByteArray("<?xml version='1.0'?>"), QByteArray("<?xml version='1.0' encoding='nonsense'?><r/>")}) {
        const ZepaXmlNode node = read(bad);
        EXPECT_TRUE(node.isNull()) << bad.constData();
        EXPECT_FALSE(node.hasChildNodes()) << bad.constData();
        EXPECT_TRUE(node.text().isEmpty()) << bad.constData();
    }
}

TEST(XmlNode, ForgetsItsOldContentWithTheNew)
{
    ZepaXmlNode node(u"old"_s, u"text"_s, nullptr);
    node.addChild(u"child"_s, {});
    node.setAttribute(u"a"_s, u"1"_s);
    const ZepaXmlNode sameElement = node; // NOLINT(performance-unnecessary-copy-initialization): a second handle
    node.setContent("<new/>");
    EXPECT_EQ(sameElement.name(), u"new"_s);
    EXPECT_FALSE(sameElement.hasChildNodes());
    EXPECT_TRUE(sameElement.getAttribute(u"a"_s).isNull());
    node.setContent("<broken>");
    EXPECT_TRUE(sameElement.isNull());
}

TEST(XmlNode, HandlesMeanTheSameElement)
{
    ZepaXmlNode node(u"r"_s, {}, nullptr);
    ZepaXmlNode handle = node;
    handle.addChild(u"a"_s, u"x"_s);
    ZepaXmlNode child = node.getChildNodes().constFirst();
    child.setAttribute(u"k"_s, u"v"_s);
    EXPECT_EQ(node.toByteArray(-1), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r><a k=\"v\">x</a></r>\n");
}

TEST(XmlNode, AttachesItselfBehindTheLastChildOfItsParent)
{
    ZepaXmlNode parent(u"r"_s, {}, nullptr);
    parent.addChild(u"a"_s, {});
    const ZepaXmlNode child(u"b"_s, u"x"_s, &parent);
    ASSERT_EQ(parent.getChildNodes().size(), 2);
    EXPECT_EQ(parent.getChildNodes().at(1).text(), u"x"_s);
}

TEST(XmlNode, OutlivesItsParent)
{
    ZepaXmlNode child({}, {}, nullptr);
    {
        ZepaXmlNode parent(u"r"_s, {}, nullptr);
        child = parent.addChild(u"a"_s, u"x"_s);
        child.addChild(u"b"_s, u"y"_s);
    }
    EXPECT_EQ(child.text(), u"x"_s);
    EXPECT_EQ(child.getChildNodes().constFirst().text(), u"y"_s);
}

TEST(XmlNode, SharesAnElementThatIsAppendedTwice)
{
    ZepaXmlNode a(u"a"_s, {}, nullptr);
    ZepaXmlNode b(u"b"_s, {}, nullptr);
    ZepaXmlNode shared(u"s"_s, {}, nullptr);
    a.appendChild(shared);
    b.appendChild(shared);
    shared.addChild(u"x"_s, {});
    EXPECT_TRUE(a.getChildNodes().constFirst().hasChildNodes());
    EXPECT_TRUE(b.getChildNodes().constFirst().hasChildNodes());
}

TEST(XmlNode, RefusesNullNodesAndCircles)
{
    ZepaXmlNode root(u"r"_s, {}, nullptr);
    root.appendChild(ZepaXmlNode({}, {}, nullptr));
    EXPECT_FALSE(root.hasChildNodes());
    root.appendChild(root);
    EXPECT_FALSE(root.hasChildNodes());
    ZepaXmlNode child = root.addChild(u"a"_s, {});
    ZepaXmlNode grandchild = child.addChild(u"b"_s, {});
    grandchild.appendChild(root);
    grandchild.appendChild(child);
    EXPECT_FALSE(grandchild.hasChildNodes());
    root.appendChild(grandchild);
    EXPECT_EQ(root.getChildNodes().size(), 2);
}

TEST(XmlNode, FindsACircleThroughManySharedElements)
{
    // Each element holds the next one twice: without a memory of what was seen, the search would take 2^60 steps.
    ZepaXmlNode top(u"top"_s, {}, nullptr);
    ZepaXmlNode bottom = top;
    for (int level = 0; level < 60; ++level) {
        const ZepaXmlNode next = bottom.addChild(u"n"_s, {});
        bottom.appendChild(next);
        bottom = next;
    }
    const ZepaXmlNode leaf = bottom.addChild(u"leaf"_s, {});
    ZepaXmlNode other(u"o"_s, {}, nullptr);
    ZepaXmlNode inner = other.addChild(u"i"_s, {});
    inner.appendChild(top);
    EXPECT_TRUE(inner.hasChildNodes());
    bottom.appendChild(inner);
    EXPECT_EQ(bottom.getChildNodes().size(), 1);
    EXPECT_FALSE(leaf.hasChildNodes());
}

TEST(XmlNode, LeavesNamelessChildrenOutOfTheDocument)
{
    ZepaXmlNode root(u"r"_s, {}, nullptr);
    root.addChild({}, u"x"_s).addChild(u"y"_s, {});
    EXPECT_EQ(root.toByteArray(2), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r/>\n");
}

TEST(XmlNode, IndentsByTheWidthThatIsAskedFor)
{
    ZepaXmlNode root(u"r"_s, {}, nullptr);
    root.addChild(u"a"_s, u"x"_s).addChild(u"in"_s, {});
    root.addChild(u"b"_s, {}).addChild(u"c"_s, {});
    const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    EXPECT_EQ(root.toByteArray(-1), declaration + "<r><a>x<in/></a><b><c/></b></r>\n");
    EXPECT_EQ(root.toByteArray(2), declaration + "<r>\n  <a>x<in/></a>\n  <b>\n    <c/>\n  </b>\n</r>\n");
    EXPECT_EQ(root.toByteArray(0), declaration + "<r>\n<a>x<in/></a>\n<b>\n<c/>\n</b>\n</r>\n");
}

TEST(XmlNode, GivesAnAttributeWithoutValueAnEmptyOne)
{
    ZepaXmlNode node(u"r"_s, {}, nullptr);
    node.setAttribute(u"a"_s, QString());
    EXPECT_FALSE(node.getAttribute(u"a"_s).isNull());
    node.setAttribute(QString(), u"x"_s);
    EXPECT_TRUE(node.getAttribute(QString()).isNull());
    node.setAttribute(u"a"_s, u"2"_s);
    EXPECT_EQ(node.getAttribute(u"a"_s), u"2"_s);
}

} // namespace
