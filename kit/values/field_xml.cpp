// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"
#include "kit/values/field_data.h"
#include "kit/values/field_value.h"

#include <QHash>

using namespace Qt::StringLiterals;

// <fields><field id="sticky">true</field>...</fields>
//
// Values are texts of elements and not attributes: that keeps a file with a strange sound file name readable.

ZepaXmlNode ZepaField::toXml(const QList<ZepaField>& fields)
{
    ZepaXmlNode node(u"fields"_s, {}, nullptr);
    for (const ZepaField& field : fields) {
        if (field.getType() == NoType)
            continue;
        ZepaXmlNode child = node.addChild(u"field"_s, field.d->unfit.value_or(field.getText()));
        child.setAttribute(u"id"_s, field.getId());
    }
    return node;
}

QList<ZepaField> ZepaField::fromXml(const QList<ZepaField>& fieldTemplate, const ZepaXmlNode& node)
{
    QHash<QString, QString> stored;
    const QList<ZepaXmlNode> children = node.getChildNodes();
    for (const ZepaXmlNode& child : children) {
        if (child.name() == u"field"_s)
            stored.insert(child.getAttribute(u"id"_s), child.text());
    }

    QList<ZepaField> fields = fieldTemplate;
    for (ZepaField& field : fields) {
        const auto value = stored.constFind(field.getId());
        if (value == stored.cend() || field.getType() == NoType)
            continue;
        if (zepa::fieldAllows(field, *value))
            field.setText(*value);
        else
            field.d->unfit = *value;
    }
    return fields;
}
