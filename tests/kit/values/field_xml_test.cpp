// SPDX-License-Identifier: Apache-2.0
#include "host/field.h"
#include "host/xml_node.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QList<ZepaField> fieldTemplate()
{
    return {
        ZepaField::checkBox({}, u"sticky"_s, false, {}, {}),
        ZepaField::spinBox({}, u"limit"_s, 300, 0, 5, {}, {}),
        ZepaField::comboBox({}, u"alerts"_s, {u"never"_s, u"always"_s}, {}, u"never"_s, {}),
        ZepaField::soundEdit({}, u"sound_file"_s, u"bell.wav"_s, {}),
    };
}

QList<ZepaField> changed()
{
    QList<ZepaField> fields = fieldTemplate();
    fields[0].setChecked(true);
    fields[1].setIntValue(300);
    fields[2].setSelectedId(u"always"_s);
    fields[3].setText(u"/x/ding.aiff"_s);
    return fields;
}

QStringList texts(const QList<ZepaField>& fields)
{
    QStringList list;
    for (const ZepaField& field : fields)
        list.append(field.getText());
    return list;
}

ZepaXmlNode throughAFile(const ZepaXmlNode& node)
{
    ZepaXmlNode read({}, {}, nullptr);
    read.setContent(node.toByteArray(-1));
    return read;
}

TEST(FieldXml, BringsEveryValueBack)
{
    const ZepaXmlNode node = throughAFile(ZepaField::toXml(changed()));
    EXPECT_EQ(texts(ZepaField::fromXml(fieldTemplate(), node)), texts(changed()));
}

TEST(FieldXml, DoesNotDependOnTheOrderOfFields)
{
    QList<ZepaField> fields = changed();
    std::reverse(fields.begin(), fields.end());
    EXPECT_EQ(texts(ZepaField::fromXml(fieldTemplate(), ZepaField::toXml(fields))), texts(changed()));
}

TEST(FieldXml, KeepsTheTemplatesValueForAMissingField)
{
    const ZepaXmlNode node = ZepaField::toXml({changed().at(3)});
    const QList<ZepaField> fields = ZepaField::fromXml(fieldTemplate(), node);
    EXPECT_EQ(texts(fields), QStringList({u"false"_s, u"5"_s, u"never"_s, u"/x/ding.aiff"_s}));
}

TEST(FieldXml, KeepsTheTemplatesValueWhereTheStoredOneDoesNotFit)
{
    ZepaXmlNode node(u"fields"_s, {}, nullptr);
    const auto add = [&node](const QString& id, const QString& value) {
        node.addChild(u"field"_s, value).setAttribute(u"id"_s, id);
    };
    add(u"sticky"_s, u"maybe"_s);
    add(u"limit"_s, u"301"_s);
    add(u"alerts"_s, u"sometimes"_s);
    add(u"unknown"_s, u"x"_s);
    EXPECT_EQ(texts(ZepaField::fromXml(fieldTemplate(), node)), texts(fieldTemplate()));
}

/// The template's fields, read from values that the first three of them do not allow.
QList<ZepaField> unfit()
{
    ZepaXmlNode node(u"fields"_s, {}, nullptr);
    const QStringList values{u"maybe"_s, u"301"_s, u"sometimes"_s};
    for (qsizetype i = 0; i < values.size(); ++i)
        node.addChild(u"field"_s, values[i]).setAttribute(u"id"_s, fieldTemplate().at(i).getId());
    return ZepaField::fromXml(fieldTemplate(), throughAFile(node));
}

/// The values that are written for fields, in their order.
QStringList written(const QList<ZepaField>& fields)
{
    QStringList values;
    for (const ZepaXmlNode& child : throughAFile(ZepaField::toXml(fields)).getChildNodes())
        values.append(child.text());
    return values;
}

TEST(FieldXml, WritesAStoredValueThatDoesNotFitBackAsItWas)
{
    const QStringList values{u"maybe"_s, u"301"_s, u"sometimes"_s, u"bell.wav"_s};
    EXPECT_EQ(texts(unfit()), texts(fieldTemplate()));
    EXPECT_EQ(written(unfit()), values);
    // Also after the next start, and where one of its neighbours changes.
    QList<ZepaField> again = ZepaField::fromXml(fieldTemplate(), throughAFile(ZepaField::toXml(unfit())));
    again[3].setText(u"x.wav"_s);
    EXPECT_EQ(written(again), values.first(3) << u"x.wav"_s);
}

TEST(FieldXml, ForgetsAStoredValueThatDoesNotFitWhenASetterChangesTheField)
{
    QList<ZepaField> fields = unfit();
    fields[0].setChecked(false);
    fields[1].setIntValue(5);
    fields[2].setSelectedId(u"never"_s);
    EXPECT_EQ(written(fields), texts(fieldTemplate()));
    fields = unfit();
    for (ZepaField& field : fields)
        field.setText(field.getText());
    EXPECT_EQ(written(fields), texts(fieldTemplate()));
}

TEST(FieldXml, KeepsAStoredValueThatDoesNotFitWhenASetterChangesNothing)
{
    QList<ZepaField> fields = unfit();
    for (ZepaField* field : {&fields[0], &fields[1], &fields[2]})
        field->setText(u"no"_s);
    fields[0].setIntValue(7);
    fields[0].setSelectedId(u"always"_s);
    fields[1].setChecked(true);
    fields[2].setSelectedId(u"loudly"_s);
    EXPECT_EQ(written(fields), written(unfit()));
}

TEST(FieldXml, KeepsAStoredValueThatDoesNotFitInEachCopyByItself)
{
    const QList<ZepaField> fields = unfit();
    ZepaField copy = fields[1];
    copy.setIntValue(17);
    EXPECT_EQ(written({copy, fields[1]}), QStringList({u"17"_s, u"301"_s}));
}

TEST(FieldXml, TakesTheLaterOfTwoValues)
{
    ZepaXmlNode node = ZepaField::toXml(changed());
    node.addChild(u"field"_s, u"7"_s).setAttribute(u"id"_s, u"limit"_s);
    EXPECT_EQ(ZepaField::fromXml(fieldTemplate(), node).at(1).getIntValue(), 7);
}

TEST(FieldXml, PassesOverWhatIsNoField)
{
    ZepaXmlNode node(u"fields"_s, {}, nullptr);
    node.addChild(u"note"_s, u"true"_s).setAttribute(u"id"_s, u"sticky"_s);
    EXPECT_EQ(texts(ZepaField::fromXml(fieldTemplate(), node)), texts(fieldTemplate()));
    EXPECT_EQ(texts(ZepaField::fromXml(fieldTemplate(), ZepaXmlNode({}, {}, nullptr))), texts(fieldTemplate()));
}

TEST(FieldXml, WritesNoElementForNoField)
{
    EXPECT_FALSE(ZepaField::toXml({ZepaField()}).hasChildNodes());
    EXPECT_FALSE(ZepaField::toXml({}).isNull());
    EXPECT_TRUE(ZepaField::fromXml({}, ZepaField::toXml(changed())).isEmpty());
}

TEST(FieldXml, CarriesTextsThatXmlCannotSay)
{
    const QChar strange[] = {QChar(0), QChar(0xD800), u'\r', QChar(0xFFFE), u'<', u'&', QChar(0xDC00), u'\n'};
    const QString text = QString(strange, std::size(strange));
    QList<ZepaField> fields = fieldTemplate();
    fields[3].setText(text);
    const ZepaField identified = ZepaField::soundEdit({}, text, text, {});
    fields.append(identified);

    const ZepaXmlNode node = throughAFile(ZepaField::toXml(fields));
    QList<ZepaField> empty = fieldTemplate();
    empty.append(ZepaField::soundEdit({}, text, {}, {}));
    const QList<ZepaField> read = ZepaField::fromXml(empty, node);
    EXPECT_EQ(read.at(3).getText(), text);
    EXPECT_EQ(read.at(4).getText(), text);
}

} // namespace
