// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QString>

/// Values of fields as people and files write them. Usable with any body of ZepaField: it calls public operations
/// alone.
namespace zepa {

/// The field's type, for a switch without a default: a new type is a compile error then wherever it has to be known.
/// Of a body with types of its own it may be a value beside those of the enumeration.
inline ZepaField::Type typeOf(const ZepaField& field)
{
    return static_cast<ZepaField::Type>(field.getType());
}

/// Whether `field` may hold the value that `text` spells: "true" or "false" for a check box, a whole number within
/// the bounds for a spin box, one of the item identifiers for a combo box, anything for a sound file and a text. A
/// field without type allows nothing.
inline bool fieldAllows(const ZepaField& field, const QString& text)
{
    switch (typeOf(field)) {
    case ZepaField::CheckBox:
        return text == QLatin1String("true") || text == QLatin1String("false");
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
    case ZepaField::NoType:
        break;
    }
    return false;
}

} // namespace zepa
