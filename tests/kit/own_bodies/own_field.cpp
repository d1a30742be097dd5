// SPDX-License-Identifier: Apache-2.0
// Fields whose inside and whose layout in files are other ones than those of the kit.
#include "host/field.h"
#include "host/xml_node.h"

#include <QVariantHash>

#include <algorithm>

using namespace Qt::StringLiterals;

class ZepaFieldData : public QSharedData
{
public:
    int type = ZepaField::NoType;
    QVariantHash parts;
    QString value;
};

ZepaField::ZepaField() : d(new ZepaFieldData)
{}
ZepaField::ZepaField(ZepaFieldData* data) : d(data)
{}
ZepaField::ZepaField(const ZepaField& other) = default;
ZepaField::ZepaField(ZepaField&& other) noexcept = default;
ZepaField& ZepaField::operator=(const ZepaField& other) = default;
ZepaField& ZepaField::operator=(ZepaField&& other) noexcept = default;
ZepaField::~ZepaField() = default;

namespace {

ZepaFieldData* make(int type, const QString& label, const QString& id, const QString& value, const QString& text,
                    QVariantHash parts = {})
{
    auto* data = new ZepaFieldData;
    data->type = type;
    data->value = value;
    parts.insert({{u"label"_s, label}, {u"id"_s, id}, {u"description"_s, text}});
    data->parts = parts;
    return data;
}

} // namespace

ZepaField ZepaField::checkBox(const QString& label, const QString& id, bool checked, const QString& text,
                              const QStringList& /*options*/)
{
    return ZepaField(make(CheckBox, label, id, checked ? u"true"_s : u"false"_s, text));
}

ZepaField ZepaField::comboBox(const QString& label, const QString& id, const QStringList& itemIds,
                              const QStringList& itemLabels, const QString& selectedId, const QString& text)
{
    return ZepaField(make(ComboBox, label, id, selectedId, text, {{u"items"_s, itemIds}, {u"labels"_s, itemLabels}}));
}

ZepaField ZepaField::spinBox(const QString& label, const QString& id, int upper, int lower, int initial,
                             const QString& text, const QString& suffix)
{
    return ZepaField(make(SpinBox, label, id, QString::number(std::clamp(initial, lower, upper)), text,
                          {{u"upper"_s, upper}, {u"lower"_s, lower}, {u"suffix"_s, suffix}}));
}

ZepaField ZepaField::soundEdit(const QString& label, const QString& id, const QString& file, const QString& text)
{
    return ZepaField(make(SoundEdit, label, id, file, text));
}

ZepaField ZepaField::textEdit(const QString& label, const QString& id, const QString& value, const QString& text)
{
    return ZepaField(make(TextEdit, label, id, value, text));
}

QString ZepaField::getId() const
{
    return d->parts[u"id"_s].toString();
}

int ZepaField::getType() const
{
    return d->type;
}

QString ZepaField::getLabel() const
{
    return d->parts[u"label"_s].toString();
}

QString ZepaField::getDescription() const
{
    return d->parts[u"description"_s].toString();
}

QString ZepaField::getText() const
{
    return d->value;
}

void ZepaField::setText(const QString& text)
{
    if (d->type == CheckBox && (text == u"true"_s || text == u"false"_s))
        setChecked(text == u"true"_s);
    else if (d->type == SpinBox)
        setIntValue(text.toInt());
    else if (d->type == ComboBox)
        setSelectedId(text);
    else if (d->type == SoundEdit || d->type == TextEdit)
        d->value = text;
}

bool ZepaField::isChecked() const
{
    return d->value == u"true"_s;
}

void ZepaField::setChecked(bool checked)
{
    d->value = checked ? u"true"_s : u"false"_s;
}

int ZepaField::getIntValue() const
{
    return d->value.toInt();
}

void ZepaField::setIntValue(int value)
{
    d->value = QString::number(std::clamp(value, getLowerBound(), getUpperBound()));
}

int ZepaField::getUpperBound() const
{
    return d->parts[u"upper"_s].toInt();
}

int ZepaField::getLowerBound() const
{
    return d->parts[u"lower"_s].toInt();
}

QString ZepaField::getSuffix() const
{
    return d->parts[u"suffix"_s].toString();
}

QString ZepaField::getSelectedId() const
{
    return d->type == ComboBox ? d->value : QString();
}

void ZepaField::setSelectedId(const QString& id)
{
    if (getItemIds().contains(id))
        d->value = id;
}

QStringList ZepaField::getItemIds() const
{
    return d->parts[u"items"_s].toStringList();
}

QStringList ZepaField::getItemLabels() const
{
    return d->parts[u"labels"_s].toStringList();
}

ZepaXmlNode ZepaField::toXml(const QList<ZepaField>& fields)
{
    ZepaXmlNode node(u"own"_s, {}, nullptr);
    for (const ZepaField& field : fields)
        node.setAttribute(field.getId(), field.getText());
    return node;
}

QList<ZepaField> ZepaField::fromXml(const QList<ZepaField>& fieldTemplate, const ZepaXmlNode& node)
{
    QList<ZepaField> fields = fieldTemplate;
    for (ZepaField& field : fields) {
        const QString stored = node.getAttribute(field.getId());
        if (!stored.isNull())
            field.setText(stored);
    }
    return fields;
}
