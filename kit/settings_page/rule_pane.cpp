// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/rule_pane.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "kit/extra_methods/command/shell_warning.h"
#include "kit/rules/method_titles.h"
#include "kit/rules/rule_editor.h"
#include "kit/settings_page/field_form.h"
#include "kit/texts/plain_text.h"
#include "kit/widgets/plain_widgets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QLabel* wrapped(QWidget* parent)
{
    auto* label = makePlainLabel(parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

RulePane::RulePane(RuleEditor& editor, QWidget* parent)
    : QGroupBox(parent)
    , m_editor(editor)
    , m_explanation(wrapped(this))
    , m_ruleLabel(new QLabel(tr("Ru&le:"), this))
    , m_rule(new QComboBox(this))
    , m_state(wrapped(this))
    , m_form(new FieldForm(this))
    , m_add(makeButton(tr("&Add a rule"), "add", this))
    , m_remove(makeButton(tr("Re&move this rule"), "remove", this))
    , m_sample(makeButton(tr("Post a &sample"), "sample", this))
    , m_defaults(makeButton(tr("Restore &defaults"), "defaults", this))
{
    m_rule->setObjectName(u"rule"_s);
    m_ruleLabel->setBuddy(m_rule);
    setPlainToolTip(*m_sample, tr("Triggers a test event so you can see and hear the result."));
    setPlainToolTip(*m_defaults, tr("Resets all notifications for this event to the defaults."));

    auto* ruleRow = new QHBoxLayout;
    ruleRow->addWidget(m_ruleLabel);
    ruleRow->addWidget(m_rule, 1);
    auto* ruleButtons = new QHBoxLayout;
    ruleButtons->addWidget(m_add);
    ruleButtons->addWidget(m_remove);
    ruleButtons->addStretch();
    auto* typeButtons = new QHBoxLayout;
    typeButtons->addWidget(m_sample);
    typeButtons->addWidget(m_defaults);
    typeButtons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_explanation);
    layout->addLayout(ruleRow);
    layout->addWidget(m_state);
    layout->addWidget(m_form);
    layout->addLayout(ruleButtons);
    layout->addStretch();
    layout->addLayout(typeButtons);

    connect(&editor, &RuleEditor::rulesChanged, this, [this](const QString& type) {
        if (type == m_type)
            fill();
    });
    connect(m_rule, &QComboBox::currentIndexChanged, this, &RulePane::fillRules);
    connect(m_form, &FieldForm::edited, this, [this](const ZepaField& field, const QString& value) {
        m_editor.change(m_type, m_method, m_rule->currentIndex(), field.getId(), value);
        // The value is another one than the user gave where it could not be written.
        fillRules();
        if (const QString warning = shownWarning(); !warning.isEmpty())
            Q_EMIT warned(warning);
    });
    connect(m_add, &QPushButton::clicked, this, [this] { m_editor.add(m_type, m_method); });
    connect(m_remove, &QPushButton::clicked, this,
            [this] { m_editor.remove(m_type, m_method, m_rule->currentIndex()); });
    connect(m_sample, &QPushButton::clicked, this, &RulePane::sampleWanted);
    connect(m_defaults, &QPushButton::clicked, this, [this] { m_editor.restoreDefaults(m_type); });
    showPair(nullptr, nullptr);
}

void RulePane::showPair(const ZepaNotification* type, const ZepaNotificationMethod* method)
{
    m_type = type ? type->getId() : QString();
    m_method = type && method ? method->getId() : QString();
    m_methodName = type && method ? methodTitle(*method) : QString();
    setEnabled(type != nullptr);
    if (!type)
        setTitle(tr("No event is chosen"));
    else if (m_method.isEmpty())
        setTitle(withoutMnemonics(type->getName()));
    else
        setTitle(withoutMnemonics(tr("%1: %2", "event, method").arg(type->getName(), m_methodName)));
    m_explanation->setText(type ? type->getDescription() : QString());
    m_rule->setCurrentIndex(-1);
    fill();
}

void RulePane::fill()
{
    const QList<RuleState> rules = m_editor.rules(m_type, m_method);
    const int shown = std::max(0, m_rule->currentIndex());
    {
        const QSignalBlocker quiet(m_rule);
        m_rule->clear();
        for (qsizetype i = 0; i < rules.size(); ++i)
            m_rule->addItem(i == 0 ? tr("1 (newest)") : QString::number(i + 1));
        m_rule->setCurrentIndex(std::min(shown, m_rule->count() - 1));
    }
    for (QWidget* choice : std::initializer_list<QWidget*>{m_ruleLabel, m_rule})
        choice->setVisible(rules.size() > 1);
    m_add->setVisible(!m_method.isEmpty());
    m_remove->setVisible(!rules.isEmpty());
    m_add->setText(rules.isEmpty() ? tr("&Add a rule") : tr("&Add another rule"));
    m_defaults->setEnabled(!m_type.isEmpty() && !m_editor.hasDefaults(m_type));
    fillRules();
}

/// What the user should know about the rule that is shown.
QString RulePane::shownWarning() const
{
    return shellWarning(m_method, m_editor.rules(m_type, m_method).value(m_rule->currentIndex()).fields);
}

void RulePane::fillRules()
{
    const QList<RuleState> rules = m_editor.rules(m_type, m_method);
    const qsizetype index = m_rule->currentIndex();
    const QList<ZepaField> fields = index >= 0 && index < rules.size() ? rules[index].fields : QList<ZepaField>();
    m_form->setFields(fields);
    m_form->setVisible(!fields.isEmpty());

    QStringList sentences;
    if (m_type.isEmpty())
        sentences.append(tr("Choose an event in the table."));
    else if (m_method.isEmpty())
        sentences.append(tr("Choose the column of a method to see its rule."));
    else if (rules.isEmpty())
        sentences.append(tr("There is no rule, so this event does not use this method."));
    else if (fields.isEmpty())
        sentences.append(tr("This method has no settings."));
    if (rules.size() > 1) {
        sentences.append(tr("All %1 rules act, the newest first. Space in the table and the command line reach the "
                            "newest one. The next start of the program turns their order round.")
                             .arg(rules.size()));
    }
    if (const QString warning = shownWarning(); !warning.isEmpty())
        sentences.append(warning);
    m_state->setText(sentences.join(u' '));
    m_state->setVisible(!sentences.isEmpty());
}

} // namespace zepa
