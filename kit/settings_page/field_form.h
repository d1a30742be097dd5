// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QHash>
#include <QList>
#include <QWidget>

class QFormLayout;

namespace zepa {

class FieldEdit;

/// Setting fields below each other, each with its label, and its explanation as a tool tip.
class FieldForm : public QWidget
{
    Q_OBJECT

public:
    explicit FieldForm(QWidget* parent = nullptr);

    /// Shows these fields. Where they are the ones that are shown already, only values change: what has the focus
    /// keeps it.
    void setFields(const QList<ZepaField>& fields);

Q_SIGNALS:
    /// The user gave the field this value.
    void edited(const ZepaField& field, const QString& value);

private:
    void rebuild();
    void putTabStopsInPlace();

    QFormLayout* m_layout;
    QList<ZepaField> m_fields;
    QList<FieldEdit*> m_edits;
};

} // namespace zepa
