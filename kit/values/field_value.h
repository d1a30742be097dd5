// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QString>

/// Values of fields as people and files write them. Usable with any body of ZepaField: it calls public operations
/// alone.
namespace zepa {

/// Whether `field` may hold the value that `text` spells: "true" or "false" for a check box, a whole number within
/// the bounds for a spin box, one of the item identifiers for a combo box, anything for a sound file and a text. A
/// field without type allows nothing.
inline bool fieldAllows(const ZepaField& field, const QString& text)
{
    switch (field.getType()) {
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
    default:
        return false;
    }
}

} // namespace zepa
