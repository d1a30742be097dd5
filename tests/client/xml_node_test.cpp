// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(node.name(), QStringLiteral("a"));
}

TEST(XmlNode, ReadsNamesTextsAttributesAndChildrenInOrder)
{
    const ZepaXmlNode node =
        read("<?xml version='1.0'?><!-- c --><r x='1' y='&lt;2'>be<b>one</b>fore<c/><b>two</b></r>");
    EXPECT_EQ(node.text(), QStringLiteral("before"));
    EXPECT_EQ(node.getAttribute(QStringLiteral("x")), QStringLiteral("1"));
    EXPECT_EQ(node.getAttribute(QStringLiteral("y")), QStringLiteral("<2"));
    EXPECT_TRUE(node.getAttribute(QStringLiteral("z")).isNull());
    const QList<ZepaXmlNode> children = node.getChildNodes();
    ASSERT_EQ(children.size(), 3);
    EXPECT_EQ(children[0].text(), QStringLiteral("one"));
    EXPECT_EQ(children[1].name(), QStringLiteral("c"));
    EXPECT_TRUE(children[1].text().isEmpty());
    EXPECT_EQ(children[2].text(), QStringLiteral("two"));
}

TEST(XmlNode, TakesBlanksBetweenElementsForLayout)
{
    const ZepaXmlNode node = read("<r>\n  <a> </a>\n  <b/>\n</r>");
    EXPECT_TRUE(node.text().isEmpty());
    EXPECT_EQ(node.getChildNodes().at(0).text(), QStringLiteral(" "));
}

TEST(XmlNode, ReadsCommentsAndCharacterDataSections)
{
    const ZepaXmlNode node = read("<r><!-- \"' > < --><![CDATA[<x a=\"]]>b</r>");
    EXPECT_EQ(node.text(), QStringLiteral("<x a=\"b"));
    EXPECT_FALSE(node.hasChildNodes());
}

TEST(XmlNode, ReadsPrefixesThatNobodyDeclared)
{
    const ZepaXmlNode node = read("<p:r q:x='1' xmlns='u:v'/>");
    EXPECT_EQ(node.name(), QStringLiteral("p:r"));
    EXPECT_EQ(node.getAttribute(QStringLiteral("q:x")), QStringLiteral("1"));
    EXPECT_EQ(read(node.toByteArray(-1)).name(), QStringLiteral("p:r"));
}

TEST(XmlNode, ReadsOtherEncodings)
{
    const QString text = QStringLiteral("<r>gr\u00FC\u00DFe \U0001F600</r>");
    const QString expected = QStringLiteral("gr\u00FC\u00DFe \U0001F600");
    const QByteArray utf16(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read(text.toUtf8()).text(), expected);
    EXPECT_EQ(read("\xEF\xBB\xBF" + text.toUtf8()).text(), expected);
    EXPECT_EQ(read(utf16).text(), expected);
    EXPECT_EQ(read("\xFF\xFE" + utf16).text(), expected);
    EXPECT_EQ(read("<?xml version='1.0' encoding='ISO-8859-1'?><r>gr\xFC\xDF"
                   "e</r>")
                  .text(),
              QStringLiteral("gr\u00FC\u00DFe"));
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
    ZepaXmlNode node(QStringLiteral("old"), QStringLiteral("text"), nullptr);
    node.addChild(QStringLiteral("child"), {});
    node.setAttribute(QStringLiteral("a"), QStringLiteral("1"));
    const ZepaXmlNode sameElement = node; // NOLINT(performance-unnecessary-copy-initialization): a second handle
    node.setContent("<new/>");
    EXPECT_EQ(sameElement.name(), QStringLiteral("new"));
    EXPECT_FALSE(sameElement.hasChildNodes());
    EXPECT_TRUE(sameElement.getAttribute(QStringLiteral("a")).isNull());
    node.setContent("<broken>");
    EXPECT_TRUE(sameElement.isNull());
}

TEST(XmlNode, HandlesMeanTheSameElement)
{
    ZepaXmlNode node(QStringLiteral("r"), {}, nullptr);
    ZepaXmlNode handle = node;
    handle.addChild(QStringLiteral("a"), QStringLiteral("x"));
    ZepaXmlNode child = node.getChildNodes().constFirst();
    child.setAttribute(QStringLiteral("k"), QStringLiteral("v"));
    EXPECT_EQ(node.toByteArray(-1), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r><a k=\"v\">x</a></r>\n");
}

TEST(XmlNode, AttachesItselfBehindTheLastChildOfItsParent)
{
    ZepaXmlNode parent(QStringLiteral("r"), {}, nullptr);
    parent.addChild(QStringLiteral("a"), {});
    const ZepaXmlNode child(QStringLiteral("b"), QStringLiteral("x"), &parent);
    ASSERT_EQ(parent.getChildNodes().size(), 2);
    EXPECT_EQ(parent.getChildNodes().at(1).text(), QStringLiteral("x"));
}

TEST(XmlNode, OutlivesItsParent)
{
    ZepaXmlNode child({}, {}, nullptr);
    {
        ZepaXmlNode parent(QStringLiteral("r"), {}, nullptr);
        child = parent.addChild(QStringLiteral("a"), QStringLiteral("x"));
        child.addChild(QStringLiteral("b"), QStringLiteral("y"));
    }
    EXPECT_EQ(child.text(), QStringLiteral("x"));
    EXPECT_EQ(child.getChildNodes().constFirst().text(), QStringLiteral("y"));
}

TEST(XmlNode, SharesAnElementThatIsAppendedTwice)
{
    ZepaXmlNode a(QStringLiteral("a"), {}, nullptr);
    ZepaXmlNode b(QStringLiteral("b"), {}, nullptr);
    ZepaXmlNode shared(QStringLiteral("s"), {}, nullptr);
    a.appendChild(shared);
    b.appendChild(shared);
    shared.addChild(QStringLiteral("x"), {});
    EXPECT_TRUE(a.getChildNodes().constFirst().hasChildNodes());
    EXPECT_TRUE(b.getChildNodes().constFirst().hasChildNodes());
}

TEST(XmlNode, RefusesNullNodesAndCircles)
{
    ZepaXmlNode root(QStringLiteral("r"), {}, nullptr);
    root.appendChild(ZepaXmlNode({}, {}, nullptr));
    EXPECT_FALSE(root.hasChildNodes());
    root.appendChild(root);
    EXPECT_FALSE(root.hasChildNodes());
    ZepaXmlNode child = root.addChild(QStringLiteral("a"), {});
    ZepaXmlNode grandchild = child.addChild(QStringLiteral("b"), {});
    grandchild.appendChild(root);
    grandchild.appendChild(child);
    EXPECT_FALSE(grandchild.hasChildNodes());
    root.appendChild(grandchild);
    EXPECT_EQ(root.getChildNodes().size(), 2);
}

TEST(XmlNode, FindsACircleThroughManySharedElements)
{
    // Each element holds the next one twice: without a memory of what was seen, the search would take 2^60 steps.
    ZepaXmlNode top(QStringLiteral("top"), {}, nullptr);
    ZepaXmlNode bottom = top;
    for (int level = 0; level < 60; ++level) {
        const ZepaXmlNode next = bottom.addChild(QStringLiteral("n"), {});
        bottom.appendChild(next);
        bottom = next;
    }
    const ZepaXmlNode leaf = bottom.addChild(QStringLiteral("leaf"), {});
    ZepaXmlNode other(QStringLiteral("o"), {}, nullptr);
    ZepaXmlNode inner = other.addChild(QStringLiteral("i"), {});
    inner.appendChild(top);
    EXPECT_TRUE(inner.hasChildNodes());
    bottom.appendChild(inner);
    EXPECT_EQ(bottom.getChildNodes().size(), 1);
    EXPECT_FALSE(leaf.hasChildNodes());
}

TEST(XmlNode, LeavesNamelessChildrenOutOfTheDocument)
{
    ZepaXmlNode root(QStringLiteral("r"), {}, nullptr);
    root.addChild({}, QStringLiteral("x")).addChild(QStringLiteral("y"), {});
    EXPECT_EQ(root.toByteArray(2), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r/>\n");
}

TEST(XmlNode, IndentsByTheWidthThatIsAskedFor)
{
    ZepaXmlNode root(QStringLiteral("r"), {}, nullptr);
    root.addChild(QStringLiteral("a"), QStringLiteral("x")).addChild(QStringLiteral("in"), {});
    root.addChild(QStringLiteral("b"), {}).addChild(QStringLiteral("c"), {});
    const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    EXPECT_EQ(root.toByteArray(-1), declaration + "<r><a>x<in/></a><b><c/></b></r>\n");
    EXPECT_EQ(root.toByteArray(2), declaration + "<r>\n  <a>x<in/></a>\n  <b>\n    <c/>\n  </b>\n</r>\n");
    EXPECT_EQ(root.toByteArray(0), declaration + "<r>\n<a>x<in/></a>\n<b>\n<c/>\n</b>\n</r>\n");
}

TEST(XmlNode, GivesAnAttributeWithoutValueAnEmptyOne)
{
    ZepaXmlNode node(QStringLiteral("r"), {}, nullptr);
    node.setAttribute(QStringLiteral("a"), QString());
    EXPECT_FALSE(node.getAttribute(QStringLiteral("a")).isNull());
    node.setAttribute(QString(), QStringLiteral("x"));
    EXPECT_TRUE(node.getAttribute(QString()).isNull());
    node.setAttribute(QStringLiteral("a"), QStringLiteral("2"));
    EXPECT_EQ(node.getAttribute(QStringLiteral("a")), QStringLiteral("2"));
}

} // namespace
