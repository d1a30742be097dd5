// SPDX-License-Identifier: Apache-2.0
#include "kit/values/field_data.h"
#include "kit/values/field_value.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// A field without type has no data at all: an object that was moved from stands for "no field", too.
ZepaField::ZepaField() = default;
ZepaField::ZepaField(const ZepaField& other) = default;
ZepaField::ZepaField(ZepaField&& other) noexcept = default;
ZepaField& ZepaField::operator=(const ZepaField& other) = default;
ZepaField& ZepaField::operator=(ZepaField&& other) noexcept = default;
ZepaField::~ZepaField() = default;

ZepaField::ZepaField(ZepaFieldData* data) : d(data)
{}

// This client shows a check box by itself and has no use for options.
ZepaField ZepaField::checkBox(const QString& label, const QString& id, bool checked, const QString& text,
                              const QStringList& /*options*/)
{
    ZepaField field(new ZepaFieldData(CheckBox, label, id, text));
    field.d->checked = checked;
    return field;
}

ZepaField ZepaField::comboBox(const QString& label, const QString& id, const QStringList& itemIds,
                              const QStringList& itemLabels, const QString& selectedId, const QString& text)
{
    ZepaField field(new ZepaFieldData(ComboBox, label, id, text));
    field.d->itemIds = itemIds;
    field.d->itemLabels = itemLabels;
    field.d->text = selectedId;
    return field;
}

ZepaField ZepaField::spinBox(const QString& label, const QString& id, int upper, int lower, int initial,
                             const QString& text, const QString& suffix)
{
    ZepaField field(new ZepaFieldData(SpinBox, label, id, text));
    // Bounds in the wrong order still leave a range in which a number fits.
    field.d->upper = std::max(upper, lower);
    field.d->lower = std::min(upper, lower);
    field.d->suffix = suffix;
    field.setIntValue(initial);
    return field;
}

ZepaField ZepaField::soundEdit(const QString& label, const QString& id, const QString& file, const QString& text)
{
    ZepaField field(new ZepaFieldData(SoundEdit, label, id, text));
    field.d->text = file;
    return field;
}

ZepaField ZepaField::textEdit(const QString& label, const QString& id, const QString& value, const QString& text)
{
    ZepaField field(new ZepaFieldData(TextEdit, label, id, text));
    field.d->text = value;
    return field;
}

QString ZepaField::getId() const
{
    return d ? d->id : QString();
}

int ZepaField::getType() const
{
    return d ? d->type : NoType;
}

QString ZepaField::getLabel() const
{
    return d ? d->label : QString();
}

QString ZepaField::getDescription() const
{
    return d ? d->description : QString();
}

QString ZepaField::getText() const
{
    switch (zepa::typeOf(*this)) {
    case CheckBox:
        return d->checked ? u"true"_s : u"false"_s;
    case SpinBox:
        return QString::number(d->number);
    case ComboBox:
    case SoundEdit:
    case TextEdit:
        return d->text;
    case NoType:
        break;
    }
    return {};
}

void ZepaField::setText(const QString& text)
{
    switch (zepa::typeOf(*this)) {
    case CheckBox:
        if (text == u"true"_s || text == u"false"_s)
            setChecked(text == u"true"_s);
        break;
    case SpinBox: {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (isNumber)
            setIntValue(number);
        break;
    }
    case ComboBox:
        setSelectedId(text);
        break;
    case SoundEdit:
    case TextEdit:
        d->text = text;
        break;
    case NoType:
        break;
    }
}

bool ZepaField::isChecked() const
{
    return d && d->checked;
}

void ZepaField::setChecked(bool checked)
{
    if (getType() != CheckBox)
        return;
    d->checked = checked;
    d->unfit.reset();
}

int ZepaField::getIntValue() const
{
    return d ? d->number : 0;
}

void ZepaField::setIntValue(int value)
{
    if (getType() != SpinBox)
        return;
    d->number = std::clamp(value, d->lower, d->upper);
    d->unfit.reset();
}

int ZepaField::getUpperBound() const
{
    return d ? d->upper : 0;
}

int ZepaField::getLowerBound() const
{
    return d ? d->lower : 0;
}

QString ZepaField::getSuffix() const
{
    return d ? d->suffix : QString();
}

QString ZepaField::getSelectedId() const
{
    return getType() == ComboBox ? d->text : QString();
}

void ZepaField::setSelectedId(const QString& id)
{
    if (getType() != ComboBox || !d->itemIds.contains(id))
        return;
    d->text = id;
    d->unfit.reset();
}

QStringList ZepaField::getItemIds() const
{
    return d ? d->itemIds : QStringList();
}

QStringList ZepaField::getItemLabels() const
{
    return d ? d->itemLabels : QStringList();
}
