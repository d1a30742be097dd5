// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/journal_filter.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSplitter;
class QTableView;

namespace zepa {

class Journal;
class ScreenReaderText;

/// The journal while it grows: a filter, the table, and the chosen posting's details below.
///
/// The newest posting is chosen as it comes, unless the user has gone back to an older one.
class JournalView final : public QWidget
{
    Q_OBJECT

public:
    /// The journal must outlive this.
    explicit JournalView(Journal& journal, QWidget* parent = nullptr);

    /// Puts the chosen rows, or all that are shown, onto the clipboard, one line each with tabs between the columns.
    void copyChosen() const;
    void copyAll() const;
    QSplitter& splitter() { return *m_splitter; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeFilterRow();
    void setUpTable();
    void follow(int first, int last);
    void showDetails();
    void copy(const QList<int>& rows) const;

    JournalFilter m_shown;
    QSplitter* m_splitter;
    QTableView* m_table;
    QPlainTextEdit* m_details;
    ScreenReaderText* m_live;
};

} // namespace zepa
