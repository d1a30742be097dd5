// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/journal_entry.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>

namespace zepa {

struct Posting;

/// What was posted, the newest last, and what became of it: a table with a row for each posting. Keeps the last 1,000.
class Journal final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, VerdictColumn, Type, Title, Who, Methods, ColumnCount };
    static constexpr int capacity = 1000;

    using QAbstractTableModel::QAbstractTableModel;

    /// Notes a posting at this moment; returns its number, for answered(). `typeName` as in JournalEntry.
    int add(const Posting& posting, const QString& typeName, const Report& report);
    /// The pop-up of that posting was answered. Does nothing for one that is forgotten.
    void answered(int number, Answer answer);
    /// Forgets everything; numbers go on.
    void clear();

    const JournalEntry& entry(int row) const { return m_entries.at(row); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::optional<JournalEntry::Earlier> blockerOf(const JournalEntry& entry) const;
    void forgetOldest();

    QList<JournalEntry> m_entries;
    /// Postings that the module remembers, by their repeatKey; at most as many as the journal has entries.
    QHash<QByteArray, JournalEntry::Earlier> m_accepted;
    int m_lastNumber = 0;
};

} // namespace zepa
