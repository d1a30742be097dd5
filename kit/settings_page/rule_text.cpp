// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/rule_text.h"

#include "kit/settings_page/field_edit.h"
#include "kit/values/field_value.h"

#include <QCoreApplication>
#include <QStringList>

namespace zepa {

namespace {

QString valueText(const ZepaField& field)
{
    switch (typeOf(field)) {
    case ZepaField::CheckBox:
        return field.isChecked() ? QCoreApplication::translate("zepa", "on")
                                 : QCoreApplication::translate("zepa", "off");
    case ZepaField::ComboBox:
        return field.getItemLabels().value(field.getItemIds().indexOf(field.getSelectedId()), field.getSelectedId());
    case ZepaField::SpinBox:
        return field.getText() + field.getSuffix();
    case ZepaField::SoundEdit:
    case ZepaField::TextEdit:
    case ZepaField::NoType:
        break;
    }
    return field.getText();
}

} // namespace

QString ruleCountText(qsizetype count)
{
    if (count == 0)
        return QCoreApplication::translate("zepa", "no rule");
    return count == 1 ? QCoreApplication::translate("zepa", "one rule")
                      : QCoreApplication::translate("zepa", "%1 rules").arg(count);
}

QString settingsText(const RuleState& rule)
{
    QStringList texts;
    for (const ZepaField& field : rule.fields)
        texts.append(QCoreApplication::translate("zepa", "%1: %2").arg(fieldLabel(field), valueText(field)));
    return texts.join(QCoreApplication::translate("zepa", ", "));
}

} // namespace zepa
