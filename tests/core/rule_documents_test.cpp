// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include "host/xml_node.h"

using namespace Qt::StringLiterals;

namespace {

const QString event = u"message_received"_s;

/// What rule files say, and what is made of what they say.
class RuleDocuments : public ModuleTest
{
protected:
    RuleDocuments() { probe.fields = {ProbeMethod::box(u"box"_s), ProbeMethod::text(u"file"_s, event)}; }

    ZepaXmlNode storedDocument() const
    {
        ZepaXmlNode root(QString(), QString(), nullptr);
        root.setContent(host.readRuleFile(event));
        return root;
    }
    void readRules(const QByteArray& document)
    {
        module().installNotificationMethod(&probe);
        module().installNotificationMethod(&second);
        host.writeRuleFile(event, document);
        registerType(event);
    }
    ZepaNotificationRule* rule(const ProbeMethod& method)
    {
        return module().getNotificationRule(event, method.getId());
    }

    ProbeMethod probe;
    ProbeMethod second{u"second"_s};
};

} // namespace

TEST_F(RuleDocuments, HoldOneElementWithoutTextForEachRuleWithItsSettingsAsTheOnlyChild)
{
    readRules("<rules/>");
    addRule(event, probe);
    addRule(event, second);
    const ZepaXmlNode root = storedDocument();
    EXPECT_EQ(root.name(), u"rules"_s);
    EXPECT_TRUE(root.text().isEmpty());
    const QList<ZepaXmlNode> elements = root.getChildNodes();
    ASSERT_EQ(elements.size(), 2);
    EXPECT_EQ(elements[0].name(), u"second"_s);
    EXPECT_EQ(elements[1].name(), u"probe"_s);
    for (const ZepaXmlNode& element : elements) {
        EXPECT_TRUE(element.text().isEmpty()) << element.text().toStdString();
        ASSERT_EQ(element.getChildNodes().size(), 1);
        EXPECT_EQ(element.getChildNodes().constFirst().name(), ZepaField::toXml({}).name());
    }
    EXPECT_EQ(elements[1].getChildNodes().constFirst().getChildNodes().size(), 2);
}

TEST_F(RuleDocuments, AreReadOnBehindElementsThatMakeNoRule)
{
    readRules("<rules><probe/><stranger><fields/></stranger><probe>text</probe><second><fields/></second></rules>");
    EXPECT_EQ(rule(probe), nullptr);
    EXPECT_NE(rule(second), nullptr);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(RuleDocuments, AreReadWhateverTheirRootIsCalled)
{
    readRules("<second><probe><fields/></probe></second>");
    EXPECT_NE(rule(probe), nullptr);
    EXPECT_EQ(rule(second), nullptr);
}

TEST_F(RuleDocuments, KeepAValueThatNoLongerFitsItsFieldUntilTheUserChangesIt)
{
    readRules("<rules><probe><fields><field id=\"box\">maybe</field></fields></probe></rules>");
    ASSERT_NE(rule(probe), nullptr);
    EXPECT_EQ(textOf(rule(probe)->getConfig(), u"box"_s), u"false"_s);
    QList<ZepaField> config{ProbeMethod::text(u"file"_s, u"changed"_s)};
    module().updateNotificationRule(event, u"probe"_s, config);
    EXPECT_TRUE(host.readRuleFile(event).contains(">maybe<"));
    EXPECT_TRUE(host.readRuleFile(event).contains(">changed<"));

    config = rule(probe)->getConfig();
    for (ZepaField& field : config)
        field.setChecked(false);
    module().updateNotificationRule(event, u"probe"_s, config);
    EXPECT_FALSE(host.readRuleFile(event).contains(">maybe<"));
    EXPECT_TRUE(host.readRuleFile(event).contains(">false<"));
}
