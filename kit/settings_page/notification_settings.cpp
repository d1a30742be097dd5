// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/notification_settings.h"

#include "core/notification.h"
#include "core/notification_module.h"
#include "kit/rules/rule_editor.h"
#include "kit/settings/setting_store.h"
#include "kit/settings_page/event_header.h"
#include "kit/settings_page/field_form.h"
#include "kit/settings_page/problem_bar.h"
#include "kit/settings_page/rule_check_delegate.h"
#include "kit/settings_page/rule_pane.h"
#include "kit/settings_page/rule_table_model.h"
#include "kit/settings_page/rule_text.h"
#include "kit/widgets/elided_label.h"
#include "kit/widgets/plain_widgets.h"
#include "kit/widgets/screen_reader_text.h"

#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QShowEvent>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

NotificationSettings::NotificationSettings(const RuleStore& store, QWidget* parent)
    : QWidget(parent)
    , m_editor(new RuleEditor(store, this))
    , m_model(new RuleTableModel(store.module, *m_editor, this))
    , m_parts(new QSplitter(Qt::Vertical, this))
    , m_table(new QTableView(this))
    , m_pane(new RulePane(*m_editor, this))
    , m_settings(new FieldForm(this))
    , m_panes(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_buttons(new QHBoxLayout)
    , m_undo(makeButton(tr("&Undo"), "undo", this))
    , m_redo(makeButton(tr("Red&o"), "redo", this))
    , m_undoText(new ElidedLabel(this))
    , m_said(makePlainLabel(this))
    , m_live(new ScreenReaderText(this))
{
    setObjectName(u"notificationSettingsPage"_s);
    m_parts->addWidget(makeTable());
    m_parts->addWidget(makePanes());
    m_parts->setStretchFactor(0, 1);
    m_parts->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new ProblemBar(*m_editor, this));
    layout->addWidget(m_parts, 1);
    layout->addWidget(m_said);
    makeButtons();
    layout->addLayout(m_buttons);
    m_said->setObjectName(u"said"_s);
    m_said->setWordWrap(true);
    m_said->setText(tr("Space adds or removes a rule. Changes are stored at once."));

    makeActions();
    showSettings();
    showHistory();
    m_table->setCurrentIndex(m_model->index(0, 0));
    setFocusProxy(m_table);
    m_table->setFocus();
}

void NotificationSettings::refresh()
{
    m_editor->refresh();
}

bool NotificationSettings::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        refresh();
    return QWidget::event(event);
}

void NotificationSettings::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    // The panes get what they ask for, the table the rest: it scrolls more gracefully.
    const int all = m_parts->height();
    const int wanted = std::min(m_panes->sizeHint().height(), all / 2);
    m_parts->setSizes({all - wanted, wanted});
    m_table->scrollTo(m_table->currentIndex());
}

void NotificationSettings::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // In a narrow window, and at a large scale, the panes stand below each other, and long names of events are cut.
    const int narrow = fontMetrics().averageCharWidth() * 80;
    m_panes->setDirection(width() < narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_table->verticalHeader()->setMaximumWidth(width() * 2 / 5);
}

QWidget* NotificationSettings::makeTable()
{
    m_table->setObjectName(u"rules"_s);
    m_table->setAccessibleName(tr("Events and methods"));
    m_table->setAccessibleDescription(tr("A check mark stands where an event uses a method. Space toggles it."));
    m_table->setModel(m_model);
    m_table->setItemDelegate(new RuleCheckDelegate(m_table));
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setWordWrap(false);
    m_table->setCornerButtonEnabled(false);

    auto* columns = m_table->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::ResizeToContents);
    columns->setStretchLastSection(true);
    columns->setHighlightSections(true);
    m_table->setVerticalHeader(new EventHeader(m_table));
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &NotificationSettings::showChosenPair);
    connect(m_model, &QAbstractItemModel::modelReset, this, &NotificationSettings::showChosenPair);
    return m_table;
}

QWidget* NotificationSettings::makePanes()
{
    auto* all = new QGroupBox(tr("For all events"), this);
    auto* allLayout = new QVBoxLayout(all);
    allLayout->addWidget(m_settings);
    allLayout->addStretch();

    auto* side = new QWidget(this);
    side->setLayout(m_panes);
    m_panes->addWidget(m_pane, 3);
    m_panes->addWidget(all, 2);
    // In a low window, and at a large scale, the panes scroll.
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(side);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);

    connect(m_pane, &RulePane::sampleWanted, this, [this] {
        if (const ZepaNotification* type = m_model->type(m_table->currentIndex()))
            Q_EMIT sampleWanted(type->getId());
    });
    connect(m_pane, &RulePane::warned, this, &NotificationSettings::say);
    connect(m_settings, &FieldForm::edited, this, [this](const ZepaField& field, const QString& value) {
        m_editor->changeSetting(field, value);
        showSettings();
    });
    return scroll;
}

void NotificationSettings::makeButtons()
{
    m_buttons->addWidget(m_undo);
    m_buttons->addWidget(m_redo);
    m_buttons->addWidget(m_undoText, 1);
    m_buttons->addWidget(m_live);
    connect(m_undo, &QPushButton::clicked, m_editor, &RuleEditor::undo);
    connect(m_redo, &QPushButton::clicked, m_editor, &RuleEditor::redo);
}

void NotificationSettings::makeActions()
{
    for (const auto& [keys, work] :
         {std::pair{QKeySequence::Undo, &RuleEditor::undo}, std::pair{QKeySequence::Redo, &RuleEditor::redo}})
        connect(new QShortcut(keys, this), &QShortcut::activated, m_editor, work);

    connect(m_editor, &RuleEditor::historyChanged, this, &NotificationSettings::showHistory);
    connect(m_editor, &RuleEditor::settingChanged, this, &NotificationSettings::showSettings);
    connect(m_editor, &RuleEditor::said, this, &NotificationSettings::say);
    connect(m_editor, &RuleEditor::problemChanged, this, [this] {
        if (!m_editor->problem().isEmpty())
            m_live->say(m_editor->problem());
    });
    connect(m_editor, &RuleEditor::rulesChanged, this, [this](const QString& type) {
        const QModelIndex current = m_table->currentIndex();
        if (current.isValid() && m_model->type(current)->getId() == type)
            say(current.data(Qt::AccessibleTextRole).toString());
    });
}

void NotificationSettings::showChosenPair()
{
    const QModelIndex index = m_table->currentIndex();
    if (index.isValid())
        m_pane->showPair(m_model->type(index), m_model->method(index));
    else
        m_pane->showPair(nullptr, nullptr);
}

void NotificationSettings::showSettings()
{
    QList<ZepaField> fields = m_editor->settings();
    for (ZepaField& field : fields)
        field = m_editor->setting(field);
    m_settings->setFields(fields);
}

void NotificationSettings::showHistory()
{
    const QString undo = m_editor->undoText();
    const QString redo = m_editor->redoText();
    m_undo->setEnabled(!undo.isEmpty());
    m_redo->setEnabled(!redo.isEmpty());
    setPlainToolTip(*m_undo, undo);
    setPlainToolTip(*m_redo, redo);
    m_undoText->setText(undo.isEmpty() ? tr("Nothing to undo.") : tr("Last change: %1").arg(undo));
}

void NotificationSettings::say(const QString& text)
{
    m_said->setText(text);
    m_live->say(text);
}

} // namespace zepa
