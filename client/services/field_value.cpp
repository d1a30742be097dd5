// SPDX-License-Identifier: Apache-2.0
#include "client/services/field_value.h"

using namespace Qt::StringLiterals;

namespace zepa {

bool fieldAllows(const ZepaField& field, const QString& text)
{
    switch (field.getType()) {
    case ZepaField::CheckBox:
        return text == u"true"_s || text == u"false"_s;
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

} // namespace zepa
