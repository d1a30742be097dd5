// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGroupBox>
#include <QString>

class QComboBox;
class QLabel;
class QPushButton;
class ZepaNotification;
class ZepaNotificationMethod;

namespace zepa {

class FieldForm;
class RuleEditor;

/// The rules of one pair of type and method: the settings of each of them, buttons to add and remove one, and what can
/// be done with the type as a whole.
class RulePane final : public QGroupBox
{
    Q_OBJECT

public:
    explicit RulePane(RuleEditor& editor, QWidget* parent = nullptr);

    /// Shows that pair; without a method what concerns the type alone, and nothing at all without a type.
    void showPair(const ZepaNotification* type, const ZepaNotificationMethod* method);

Q_SIGNALS:
    /// The user wants to see and hear an event of the type that is shown.
    void sampleWanted();
    /// The user made a rule that needs a warning, which the pane shows.
    void warned(const QString& text);

private:
    void fill();
    void fillRules();
    QString shownWarning() const;

    RuleEditor& m_editor;
    QString m_type;
    QString m_method;
    QString m_methodName;
    QLabel* m_explanation;
    QLabel* m_ruleLabel;
    QComboBox* m_rule;
    QLabel* m_state;
    FieldForm* m_form;
    QPushButton* m_add;
    QPushButton* m_remove;
    QPushButton* m_sample;
    QPushButton* m_defaults;
};

} // namespace zepa
