// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/journal_filter.h"

#include "kit/journal/journal.h"
#include "kit/journal/journal_text.h"

namespace zepa {

JournalFilter::JournalFilter(Journal& journal, QObject* parent) : QSortFilterProxyModel(parent), m_journal(journal)
{
    setSourceModel(&journal);
}

void JournalFilter::setText(const QString& text)
{
    m_text = text.trimmed();
    invalidateFilter();
}

void JournalFilter::setVerdict(std::optional<Verdict> verdict)
{
    m_verdict = verdict;
    invalidateFilter();
}

const JournalEntry& JournalFilter::entry(int row) const
{
    return m_journal.entry(mapToSource(index(row, 0)).row());
}

bool JournalFilter::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const
{
    const JournalEntry& entry = m_journal.entry(row);
    if (m_verdict && entry.verdict() != *m_verdict)
        return false;
    return m_text.isEmpty() || entry.typeName.contains(m_text, Qt::CaseInsensitive) ||
           entry.text.contains(m_text, Qt::CaseInsensitive) || lineText(entry).contains(m_text, Qt::CaseInsensitive);
}

} // namespace zepa
