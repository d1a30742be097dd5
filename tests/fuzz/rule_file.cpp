// SPDX-License-Identifier: Apache-2.0
#include "entries.h"
#include "host/field.h"
#include "host/xml_node.h"

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

namespace {

QList<ZepaField> everyKindOfField()
{
    const QString id = u"id"_s;
    return {ZepaField::checkBox({}, id + u'1', true, {}, {}),
            ZepaField::comboBox({}, id + u'2', {id, u"other"_s}, {id, id}, id, {}),
            ZepaField::spinBox({}, id + u'3', 300, -5, 7, {}, {}), ZepaField::soundEdit({}, id + u'4', id, {}),
            ZepaField::textEdit({}, id + u'5', id, {})};
}

void readFields(const ZepaXmlNode& node)
{
    const QList<ZepaField> fields = ZepaField::fromXml(everyKindOfField(), node);
    require(fields.size() == 5, "every field of the template is there");
    require(fields[1].getItemIds().contains(fields[1].getSelectedId()), "one of the items is selected");
    require(fields[2].getIntValue() >= -5 && fields[2].getIntValue() <= 300, "the number is within its bounds");
    const QList<ZepaField> again = ZepaField::fromXml(everyKindOfField(), ZepaField::toXml(fields));
    for (qsizetype i = 0; i < fields.size(); ++i)
        require(again[i].getText() == fields[i].getText(), "values survive being written");
}

} // namespace

void readRuleFile(const QByteArray& input)
{
    ZepaXmlNode root(QString(), QString(), nullptr);
    root.setContent(input);
    if (root.isNull()) {
        require(!root.hasChildNodes() && root.toByteArray(-1).isEmpty(), "what cannot be read leaves nothing");
        return;
    }
    for (const ZepaXmlNode& child : root.getChildNodes()) {
        require(!child.isNull(), "a child has a name");
        readFields(child);
    }
    for (const int indentation : {-1, 4}) {
        const QByteArray written = root.toByteArray(indentation);
        ZepaXmlNode again(QString(), QString(), nullptr);
        again.setContent(written);
        require(!again.isNull(), "what was written can be read");
        require(again.name() == root.name() && again.text() == root.text(), "the root survives being written");
        require(again.toByteArray(-1) == root.toByteArray(-1), "the tree survives being written");
    }
}

} // namespace zepa::fuzz
