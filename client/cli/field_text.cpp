// SPDX-License-Identifier: Apache-2.0
#include "client/cli/field_text.h"

#include "client/cli/output.h"
#include "kit/values/field_value.h"

#include <QJsonArray>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::cli {

QJsonValue jsonValue(const ZepaField& field)
{
    switch (typeOf(field)) {
    case ZepaField::CheckBox:
        return field.isChecked();
    case ZepaField::SpinBox:
        return field.getIntValue();
    case ZepaField::ComboBox:
    case ZepaField::SoundEdit:
    case ZepaField::TextEdit:
    case ZepaField::NoType:
        break;
    }
    return field.getText();
}

QJsonObject jsonValues(const QList<ZepaField>& fields)
{
    QJsonObject values;
    for (const ZepaField& field : fields)
        values.insert(field.getId(), jsonValue(field));
    return values;
}

QString allowedValues(const ZepaField& field)
{
    switch (typeOf(field)) {
    case ZepaField::CheckBox:
        return u"true or false"_s;
    case ZepaField::SpinBox:
        return u"a whole number from %1 to %2"_s.arg(field.getLowerBound()).arg(field.getUpperBound());
    case ZepaField::ComboBox:
        return u"one of: %1"_s.arg(field.getItemIds().join(u", "_s));
    case ZepaField::SoundEdit:
        return u"a sound file, absolute or in the sound theme's folder"_s;
    case ZepaField::TextEdit:
        return u"any text"_s;
    case ZepaField::NoType:
        break;
    }
    return u"nothing"_s;
}

QJsonObject allowedJson(const ZepaField& field)
{
    switch (field.getType()) {
    case ZepaField::CheckBox:
        return {{u"type"_s, u"boolean"_s}};
    case ZepaField::SpinBox:
        return {
            {u"type"_s, u"integer"_s}, {u"minimum"_s, field.getLowerBound()}, {u"maximum"_s, field.getUpperBound()}};
    case ZepaField::ComboBox:
        return {{u"type"_s, u"string"_s}, {u"enum"_s, QJsonArray::fromStringList(field.getItemIds())}};
    default:
        return {{u"type"_s, u"string"_s}};
    }
}

QString assignments(QList<ZepaField> fields)
{
    if (fields.isEmpty())
        return u"-"_s;
    std::sort(fields.begin(), fields.end(),
              [](const ZepaField& a, const ZepaField& b) { return a.getId() < b.getId(); });
    QStringList texts;
    for (const ZepaField& field : std::as_const(fields))
        texts.append(field.getId() + u'=' + field.getText());
    return texts.join(u' ');
}

QString assign(QList<ZepaField>& fields, const QString& assignment)
{
    const qsizetype equals = assignment.indexOf(u'=');
    const QString shown = onOneLine(assignment);
    if (equals <= 0)
        return u"\"%1\" does not have the form FIELD=VALUE"_s.arg(shown);
    const QString id = assignment.first(equals);
    const QString value = assignment.sliced(equals + 1);
    const auto field =
        std::find_if(fields.begin(), fields.end(), [&id](const ZepaField& one) { return one.getId() == id; });
    if (field == fields.end()) {
        return fields.isEmpty() ? u"\"%1\": this method has no fields to set"_s.arg(shown)
                                : u"unknown field \"%1\"; fields are: %2"_s.arg(onOneLine(id), assignments(fields));
    }
    if (!fieldAllows(*field, value))
        return u"invalid value \"%1\" for %2: must be %3"_s.arg(onOneLine(value), onOneLine(id), allowedValues(*field));
    field->setText(value);
    return {};
}

} // namespace zepa::cli
