// SPDX-License-Identifier: Apache-2.0
#include "client/cli/field_text.h"

#include "client/cli/output.h"
#include "kit/values/field_value.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::cli {

QJsonValue jsonValue(const ZepaField& field)
{
    switch (field.getType()) {
    case ZepaField::CheckBox:
        return field.isChecked();
    case ZepaField::SpinBox:
        return field.getIntValue();
    default:
        return field.getText();
    }
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
    switch (field.getType()) {
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
    default:
        return u"nothing"_s;
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
        return u"\"%1\" is not of the form FIELD=VALUE"_s.arg(shown);
    const QString id = assignment.first(equals);
    const QString value = assignment.sliced(equals + 1);
    const auto field =
        std::find_if(fields.begin(), fields.end(), [&id](const ZepaField& one) { return one.getId() == id; });
    if (field == fields.end()) {
        return fields.isEmpty() ? u"\"%1\": this method has no fields"_s.arg(shown)
                                : u"\"%1\": there is no field \"%2\"; there are: %3"_s.arg(shown, onOneLine(id),
                                                                                           assignments(fields));
    }
    if (!fieldAllows(*field, value))
        return u"\"%1\": allowed is %2"_s.arg(shown, allowedValues(*field));
    field->setText(value);
    return {};
}

} // namespace zepa::cli
