// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/field_edit.h"

#include "kit/settings_page/sound_edit.h"
#include "kit/texts/plain_text.h"
#include "kit/values/field_value.h"
#include "kit/widgets/plain_widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

class CheckEdit final : public FieldEdit
{
public:
    CheckEdit(const ZepaField& field, QWidget* parent) : FieldEdit(parent), m_box(new QCheckBox(this))
    {
        m_box->setText(withoutMnemonics(fieldLabel(field)));
        arrange(field, m_box);
        CheckEdit::setField(field);
        connect(m_box, &QCheckBox::toggled, this, [this](bool on) { Q_EMIT edited(on ? u"true"_s : u"false"_s); });
    }

    void setField(const ZepaField& field) override
    {
        const QSignalBlocker quiet(m_box);
        m_box->setChecked(field.isChecked());
    }
    bool showsLabel() const override { return true; }

private:
    QCheckBox* m_box;
};

class ChoiceEdit final : public FieldEdit
{
public:
    ChoiceEdit(const ZepaField& field, QWidget* parent) : FieldEdit(parent), m_box(new QComboBox(this))
    {
        const QStringList ids = field.getItemIds();
        const QStringList labels = field.getItemLabels();
        for (qsizetype i = 0; i < ids.size(); ++i)
            m_box->addItem(labels.value(i, ids[i]), ids[i]);
        arrange(field, m_box);
        ChoiceEdit::setField(field);
        connect(m_box, &QComboBox::activated, this, [this] { Q_EMIT edited(m_box->currentData().toString()); });
    }

    void setField(const ZepaField& field) override { m_box->setCurrentIndex(m_box->findData(field.getSelectedId())); }

private:
    QComboBox* m_box;
};

class NumberEdit final : public FieldEdit
{
public:
    NumberEdit(const ZepaField& field, QWidget* parent) : FieldEdit(parent), m_box(new QSpinBox(this))
    {
        m_box->setRange(field.getLowerBound(), field.getUpperBound());
        m_box->setSuffix(field.getSuffix());
        // A number is complete when the user leaves it or presses Enter: "30" is not "3" first.
        m_box->setKeyboardTracking(false);
        arrange(field, m_box);
        const QString bounds = FieldEdit::tr("From %1 to %2.")
                                   .arg(QString::number(field.getLowerBound()), QString::number(field.getUpperBound()));
        const QString explained =
            field.getDescription().isEmpty()
                ? bounds
                : FieldEdit::tr("%1 %2", "description, bounds").arg(field.getDescription(), bounds);
        setPlainToolTip(*m_box, explained);
        NumberEdit::setField(field);
        connect(m_box, &QSpinBox::valueChanged, this, [this](int value) { Q_EMIT edited(QString::number(value)); });
    }

    void setField(const ZepaField& field) override
    {
        if (m_box->value() == field.getIntValue())
            return;
        const QSignalBlocker quiet(m_box);
        m_box->setValue(field.getIntValue());
    }

private:
    QSpinBox* m_box;
};

class TextEdit final : public FieldEdit
{
public:
    TextEdit(const ZepaField& field, QWidget* parent) : FieldEdit(parent), m_line(new QLineEdit(this))
    {
        arrange(field, m_line);
        TextEdit::setField(field);
        connect(m_line, &QLineEdit::editingFinished, this, [this] {
            if (m_line->text() == m_shown)
                return;
            m_shown = m_value = m_line->text();
            Q_EMIT edited(m_value);
        });
    }

    void setField(const ZepaField& field) override
    {
        // What the user is typing stays, unless the value became another one.
        if (field.getText() == m_value && !m_value.isNull())
            return;
        m_value = field.getText();
        m_line->setText(m_value);
        m_shown = m_line->text();
    }

private:
    QLineEdit* m_line;
    QString m_value;
    /// What the line made of the value: of a very long one it takes only a part.
    QString m_shown;
};

bool isUndo(const QEvent& event)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

/// Whether the widget has typing of its own to take back.
bool hasTypingToUndo(const QObject& watched)
{
    const auto* line = qobject_cast<const QLineEdit*>(&watched);
    return line && (line->isUndoAvailable() || line->isRedoAvailable());
}

} // namespace

FieldEdit* FieldEdit::make(const ZepaField& field, QWidget* parent)
{
    switch (typeOf(field)) {
    case ZepaField::CheckBox:
        return new CheckEdit(field, parent);
    case ZepaField::ComboBox:
        return new ChoiceEdit(field, parent);
    case ZepaField::SpinBox:
        return new NumberEdit(field, parent);
    case ZepaField::SoundEdit:
        return new SoundEdit(field, parent);
    case ZepaField::TextEdit:
    case ZepaField::NoType:
        break;
    }
    return new TextEdit(field, parent);
}

void FieldEdit::present(const ZepaField& field, QWidget* part)
{
    part->setObjectName(field.getId());
    part->setAccessibleName(fieldLabel(field));
    setPlainToolTip(*part, field.getDescription());
    part->setFocusPolicy(Qt::StrongFocus);
    part->installEventFilter(this);
    m_part = part;
}

void FieldEdit::arrange(const ZepaField& field, QWidget* part)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(part);
    present(field, part);
}

bool FieldEdit::eventFilter(QObject* watched, QEvent* event)
{
    auto* part = qobject_cast<QWidget*>(watched);
    // A wheel that only scrolls past must not change a value.
    if (part && event->type() == QEvent::Wheel && !part->hasFocus()) {
        event->ignore();
        return true;
    }
    // A box for a number would keep these keys to itself; they are the window's.
    if (isUndo(*event) && !hasTypingToUndo(*watched)) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

QString fieldLabel(const ZepaField& field)
{
    return field.getLabel().isEmpty() ? field.getId() : field.getLabel();
}

} // namespace zepa
