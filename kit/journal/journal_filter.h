// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/journal_entry.h"

#include <QSortFilterProxyModel>
#include <QString>

#include <optional>

namespace zepa {

class Journal;

/// The rows of the journal that hold a text anywhere and have one verdict.
class JournalFilter final : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// The journal must outlive this.
    explicit JournalFilter(Journal& journal, QObject* parent = nullptr);

    /// An empty text shows all. Upper and lower case are the same.
    void setText(const QString& text);
    /// Nothing shows all.
    void setVerdict(std::optional<Verdict> verdict);

    const JournalEntry& entry(int row) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    Journal& m_journal;
    QString m_text;
    std::optional<Verdict> m_verdict;
};

} // namespace zepa
