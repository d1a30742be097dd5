// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/field_form.h"

#include "kit/settings_page/field_edit.h"
#include "kit/texts/plain_text.h"
#include "kit/widgets/plain_widgets.h"

#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace zepa {

namespace {

/// Whether the same widget can show both.
bool sameShape(const ZepaField& a, const ZepaField& b)
{
    return a.getId() == b.getId() && a.getType() == b.getType() && a.getLabel() == b.getLabel() &&
           a.getItemIds() == b.getItemIds() && a.getUpperBound() == b.getUpperBound() &&
           a.getLowerBound() == b.getLowerBound();
}

bool isTabStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && !widget.focusProxy();
}

} // namespace

FieldForm::FieldForm(QWidget* parent) : QWidget(parent), m_layout(new QFormLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    // In a narrow window the label stands above its field.
    m_layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

void FieldForm::setFields(const QList<ZepaField>& fields)
{
    const bool same = std::equal(fields.cbegin(), fields.cend(), m_fields.cbegin(), m_fields.cend(), sameShape);
    m_fields = fields;
    if (!same)
        return rebuild();
    for (qsizetype i = 0; i < fields.size(); ++i)
        m_edits[i]->setField(fields[i]);
}

void FieldForm::rebuild()
{
    while (m_layout->rowCount() > 0)
        m_layout->removeRow(0);
    m_edits.clear();
    for (const ZepaField& field : std::as_const(m_fields)) {
        auto* edit = FieldEdit::make(field, this);
        m_edits.append(edit);
        connect(edit, &FieldEdit::edited, this, [this, field](const QString& value) { Q_EMIT edited(field, value); });
        if (edit->showsLabel()) {
            m_layout->addRow(edit);
        } else {
            auto* label = makePlainLabel(this, withoutMnemonics(fieldLabel(field)));
            label->setBuddy(edit->part());
            setPlainToolTip(*label, field.getDescription());
            m_layout->addRow(label, edit);
        }
    }
    putTabStopsInPlace();
}

/// The form stands in the tab order where it was made; fields that are made later would come last in the window.
void FieldForm::putTabStopsInPlace()
{
    QWidget* stop = previousInFocusChain();
    while (stop != this && !isTabStop(*stop))
        stop = stop->previousInFocusChain();
    for (const FieldEdit* edit : std::as_const(m_edits)) {
        const auto parts = edit->findChildren<QWidget*>();
        for (QWidget* part : parts) {
            if (!isTabStop(*part))
                continue;
            setTabOrder(stop, part);
            stop = part;
        }
    }
}

} // namespace zepa
