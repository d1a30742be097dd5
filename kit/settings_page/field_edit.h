// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QString>
#include <QWidget>

namespace zepa {

/// Shows one setting field and lets the user change its value: a check box, a combo box, a number within its bounds, a
/// sound with a button to hear it, or a line of text. Has the field's label as its name for screen readers.
class FieldEdit : public QWidget
{
    Q_OBJECT

public:
    /// The widget that suits the field's type. A type that is not known is edited as a line of text.
    static FieldEdit* make(const ZepaField& field, QWidget* parent);

    /// Shows the value of `field`, which has the identifier and type of the first one; edited() is not emitted.
    virtual void setField(const ZepaField& field) = 0;
    /// The part that holds the value: what a label beside it belongs to.
    QWidget* part() const { return m_part; }
    /// The label stands in the widget itself: none is needed beside it.
    virtual bool showsLabel() const { return false; }

Q_SIGNALS:
    /// The user gave it this value, in the spelling of ZepaField::getText().
    void edited(const QString& value);

protected:
    explicit FieldEdit(QWidget* parent) : QWidget(parent) {}
    /// Gives the part that holds the value the field's name and description.
    void present(const ZepaField& field, QWidget* part);
    /// present(), for a part that is all there is.
    void arrange(const ZepaField& field, QWidget* part);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_part = nullptr;
};

/// The field's label, or its identifier where it has no label.
QString fieldLabel(const ZepaField& field);

} // namespace zepa
