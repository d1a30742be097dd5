// SPDX-License-Identifier: Apache-2.0
#include "client/window/journal_view.h"

#include "kit/journal/journal.h"
#include "kit/journal/journal_text.h"
#include "kit/texts/message_text.h"
#include "kit/widgets/screen_reader_text.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <numeric>

namespace zepa {

JournalView::JournalView(Journal& journal, QWidget* parent)
    : QWidget(parent)
    , m_shown(journal)
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_table(new QTableView(m_splitter))
    , m_details(new QPlainTextEdit(m_splitter))
    , m_live(new ScreenReaderText(this))
{
    setUpTable();
    m_details->setReadOnly(true);
    m_details->setTabChangesFocus(true);
    m_details->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_details->setAccessibleName(tr("Why did this not pop up?"));
    m_details->setPlaceholderText(tr("The journal says here for each posting why it did not pop up."));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeFilterRow());
    column->addWidget(m_splitter, 1);

    connect(&m_shown, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { follow(first, last); });
    connect(&m_shown, &QAbstractItemModel::dataChanged, this, &JournalView::showDetails);
    connect(&m_shown, &QAbstractItemModel::modelReset, this, &JournalView::showDetails);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &JournalView::showDetails);
    // What was posted before there was a window.
    if (m_shown.rowCount() > 0)
        follow(0, m_shown.rowCount() - 1);
}

QWidget* JournalView::makeFilterRow()
{
    auto* rowWidget = new QWidget(this);
    auto* text = new QLineEdit(rowWidget);
    text->setClearButtonEnabled(true);
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 16);
    text->setPlaceholderText(tr("Type, title, text, person"));
    auto* label = new QLabel(tr("&Filter:"), rowWidget);
    label->setBuddy(text);
    auto* verdicts = new QComboBox(rowWidget);
    // Its name is what is chosen.
    verdicts->setAccessibleDescription(tr("Verdict that is shown"));
    verdicts->addItem(tr("All verdicts"));
    const QList<Verdict> all = allVerdicts();
    for (const Verdict verdict : all)
        verdicts->addItem(verdictText(verdict));
    verdicts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    verdicts->setMinimumContentsLength(14);
    verdicts->setMaxVisibleItems(verdicts->count());
    auto* copyButton = new QPushButton(tr("Cop&y"), rowWidget);
    copyButton->setToolTip(tr("Puts the chosen lines onto the clipboard"));

    auto* row = new QHBoxLayout(rowWidget);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(text, 1);
    row->addWidget(verdicts);
    row->addWidget(copyButton);

    connect(text, &QLineEdit::textChanged, &m_shown, &JournalFilter::setText);
    connect(verdicts, &QComboBox::currentIndexChanged, this, [this, all](int index) {
        m_shown.setVerdict(index > 0 ? std::optional(all.at(index - 1)) : std::nullopt);
    });
    connect(copyButton, &QPushButton::clicked, this, &JournalView::copyChosen);
    return rowWidget;
}

void JournalView::setUpTable()
{
    m_table->setModel(&m_shown);
    m_table->setAccessibleName(tr("Journal"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() * 3 / 2);
    QHeaderView* header = m_table->horizontalHeader();
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    header->setStretchLastSection(true);
    const int letter = m_table->fontMetrics().averageCharWidth();
    constexpr std::array widths{10, 26, 19, 13, 11};
    for (int column = 0; column < int(widths.size()); ++column)
        header->resizeSection(column, widths.at(std::size_t(column)) * letter);
    m_table->installEventFilter(this);
}

void JournalView::follow(int first, int last)
{
    const QModelIndexList chosen = m_table->selectionModel()->selectedRows();
    const bool isLookingBack =
        chosen.size() > 1 ||
        (chosen.size() == 1 && (chosen.constFirst().row() < first - 1 || last < m_shown.rowCount() - 1));
    const JournalEntry& entry = m_shown.entry(last);
    m_live->say(tr("%1: %2", "event and verdict").arg(nameText(entry.typeName), verdictText(entry.verdict())));
    if (isLookingBack)
        return;
    m_table->selectRow(last);
    m_table->scrollToBottom();
}

void JournalView::showDetails()
{
    const QModelIndex current = m_table->currentIndex();
    const QString text = current.isValid() ? detailsText(m_shown.entry(current.row())) : QString();
    // Whoever marks a part of it with the mouse keeps the mark while other rows change.
    if (text != m_details->toPlainText())
        m_details->setPlainText(text);
}

void JournalView::copyChosen() const
{
    QList<int> rows;
    const QModelIndexList chosen = m_table->selectionModel()->selectedRows();
    for (const QModelIndex& index : chosen)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    copy(rows);
}

void JournalView::copyAll() const
{
    QList<int> rows(m_shown.rowCount());
    std::iota(rows.begin(), rows.end(), 0);
    copy(rows);
}

void JournalView::copy(const QList<int>& rows) const
{
    // What is on the clipboard already is worth more than nothing.
    if (rows.isEmpty())
        return;
    QString text;
    for (const int row : rows)
        text += lineText(m_shown.entry(row)) + u'\n';
    QGuiApplication::clipboard()->setText(text);
}

bool JournalView::eventFilter(QObject* watched, QEvent* event)
{
    // The table's own copies one cell.
    if (watched == m_table && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copyChosen();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace zepa
