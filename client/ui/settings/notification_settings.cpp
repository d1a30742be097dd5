// SPDX-License-Identifier: Apache-2.0
#include "client/ui/settings/notification_settings.h"

#include "client/client.h"
#include "client/rules/rule_editor.h"
#include "client/services/client_requests.h"
#include "client/services/global_settings.h"
#include "client/texts/plain_text.h"
#include "client/ui/elided_label.h"
#include "client/ui/live_text.h"
#include "client/ui/settings/event_header.h"
#include "client/ui/settings/field_form.h"
#include "client/ui/settings/problem_bar.h"
#include "client/ui/settings/rule_mark_delegate.h"
#include "client/ui/settings/rule_pane.h"
#include "client/ui/settings/rule_table_model.h"
#include "client/ui/settings/rule_words.h"
#include "client/ui/settings/sample.h"
#include "core/notification.h"
#include "core/notification_module.h"

#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QShowEvent>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QPushButton* button(const QString& text, const char* name, QWidget* parent)
{
    auto* made = new QPushButton(text, parent);
    made->setObjectName(QString::fromLatin1(name));
    // Enter belongs to the field that has the focus.
    made->setAutoDefault(false);
    return made;
}

} // namespace

NotificationSettings::NotificationSettings(Client& client, QWidget* parent)
    : QDialog(parent)
    , m_client(client)
    , m_editor(new RuleEditor(client, this))
    , m_model(new RuleTableModel(client.module(), *m_editor, this))
    , m_parts(new QSplitter(Qt::Vertical, this))
    , m_table(new QTableView(this))
    , m_pane(new RulePane(*m_editor, this))
    , m_settings(new FieldForm(this))
    , m_panes(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_undo(button(tr("&Undo"), "undo", this))
    , m_redo(button(tr("Red&o"), "redo", this))
    , m_undoText(new ElidedLabel(this))
    , m_said(makePlainLabel(this))
    , m_live(new LiveText(this))
{
    setWindowTitle(tr("Notification settings"));
    setObjectName(u"notificationSettings"_s);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);

    m_parts->addWidget(makeTable());
    m_parts->addWidget(makePanes());
    m_parts->setStretchFactor(0, 1);
    m_parts->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new ProblemBar(*m_editor, this));
    layout->addWidget(m_parts, 1);
    layout->addWidget(m_said);
    layout->addLayout(makeButtons());
    m_said->setObjectName(u"said"_s);
    m_said->setWordWrap(true);
    m_said->setText(tr("Space adds or removes a rule. Changes are stored at once."));

    makeActions();
    showSettings();
    showHistory();
    m_table->setCurrentIndex(m_model->index(0, 0));
    m_table->setFocus();
    resize(QSize(1120, 780).boundedTo(screen()->availableSize() * 9 / 10));
}

void NotificationSettings::refresh()
{
    m_editor->refresh();
}

void NotificationSettings::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        refresh();
    QDialog::changeEvent(event);
}

void NotificationSettings::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
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
    QDialog::resizeEvent(event);
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
    m_table->setItemDelegate(new RuleMarkDelegate(m_table));
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

    connect(m_pane, &RulePane::sampleWanted, this, &NotificationSettings::postSample);
    connect(m_pane, &RulePane::warned, this, &NotificationSettings::say);
    connect(m_settings, &FieldForm::edited, this, [this](const ZepaField& field, const QString& value) {
        m_editor->changeSetting(field, value);
        showSettings();
    });
    return scroll;
}

QLayout* NotificationSettings::makeButtons()
{
    auto* close = button(tr("&Close"), "close", this);
    auto* row = new QHBoxLayout;
    row->addWidget(m_undo);
    row->addWidget(m_redo);
    row->addWidget(m_undoText, 1);
    row->addWidget(m_live);
    row->addWidget(close);
    connect(m_undo, &QPushButton::clicked, m_editor, &RuleEditor::undo);
    connect(m_redo, &QPushButton::clicked, m_editor, &RuleEditor::redo);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    return row;
}

void NotificationSettings::makeActions()
{
    for (const auto& [keys, work] :
         {std::pair{QKeySequence::Undo, &RuleEditor::undo}, std::pair{QKeySequence::Redo, &RuleEditor::redo}})
        connect(new QShortcut(keys, this), &QShortcut::activated, m_editor, work);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);

    connect(&ClientRequests::instance(), &ClientRequests::commandCarriedOut, this, &NotificationSettings::refresh);
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
    QList<ZepaField> fields = globalSettings();
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

void NotificationSettings::postSample()
{
    const QModelIndex index = m_table->currentIndex();
    if (index.isValid())
        say(zepa::postSample(m_client, *m_model->type(index)));
}

void NotificationSettings::say(const QString& text)
{
    m_said->setText(text);
    m_live->say(text);
}

} // namespace zepa
