// SPDX-License-Identifier: Apache-2.0
#include "client/services/field_value.h"

namespace zepa {

bool fieldAllows(const ZepaField& field, const QString& text)
{
    switch (field.getType()) {
    case ZepaField::CheckBox:
        return text == QStringLiteral("true") || text == QStringLiteral("false");
    case ZepaField::SpinBox: {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        return isNumber && number >= field.getLowerBound() && number <= field.getUpperBound();
    }
    case ZepaField::ComboBox:
        return field.getItemIds().contains(text);
    case ZepaField::SoundEdit:
    case ZepaField::TextEdit:
        return true;
    default:
        return false;
    }
}

QString allowedValues(const ZepaField& field)
{
    switch (field.getType()) {
    case ZepaField::CheckBox:
        return QStringLiteral("true or false");
    case ZepaField::SpinBox:
        return QStringLiteral("a whole number from %1 to %2").arg(field.getLowerBound()).arg(field.getUpperBound());
    case ZepaField::ComboBox:
        return QStringLiteral("one of: %1").arg(field.getItemIds().join(QStringLiteral(", ")));
    case ZepaField::SoundEdit:
        return QStringLiteral("a sound file, absolute or in the sound theme's folder");
    case ZepaField::TextEdit:
        return QStringLiteral("any text");
    default:
        return QStringLiteral("nothing");
    }
}

} // namespace zepa
