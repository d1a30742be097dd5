// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/journal.h"

#include "core/repeat_rule.h"
#include "kit/journal/journal_text.h"
#include "kit/journal/posting.h"
#include "kit/texts/message_text.h"
#include "kit/texts/plain_text.h"

#include <QCoreApplication>
#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// Stands for the module's own key, which may be of any length.
QByteArray repeatKeyOf(const Posting& posting)
{
    const QString key = ZepaRepeatRule::key(posting.type, posting.title);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(key.utf16()), key.size() * qsizetype{2}));
    return hash.result();
}

QString kept(const QString& text)
{
    return shortened(text, longestMessage);
}

} // namespace

int Journal::add(const Posting& posting, const QString& typeName, const Report& report)
{
    JournalEntry entry;
    entry.number = ++m_lastNumber;
    entry.time = QDateTime::currentDateTime();
    entry.repeatKey = repeatKeyOf(posting);
    entry.type = kept(posting.type);
    entry.typeName = kept(typeName);
    entry.title = kept(posting.title);
    entry.text = kept(posting.text);
    if (posting.buddy) {
        entry.who = kept(posting.buddy->getName());
        entry.isFromStranger = posting.buddy->getType() == ZepaBuddy::NotOnContactList;
    }
    entry.report = report;
    const auto blocker = blockerOf(entry);
    if (report.fate == Fate::Repeat)
        entry.earlier = blocker;
    else if (report.fate == Fate::Delivered || !blocker)
        m_accepted.insert(entry.repeatKey, {entry.number, entry.time, entry.type, entry.title});

    while (m_entries.size() >= capacity)
        forgetOldest();
    const int row = int(m_entries.size());
    beginInsertRows({}, row, row);
    m_entries.append(entry);
    endInsertRows();
    return entry.number;
}

/// The posting that the module still remembers when it gets this one. Where no method is called in any case, the
/// report cannot tell a repeat: then this decides, by the module's own arithmetic.
std::optional<JournalEntry::Earlier> Journal::blockerOf(const JournalEntry& entry) const
{
    const auto found = m_accepted.constFind(entry.repeatKey);
    if (found == m_accepted.cend())
        return std::nullopt;
    if (entry.report.fate == Fate::Repeat)
        return *found;
    const int elapsed = secondsBetween(found->time, entry.time);
    return ZepaRepeatRule::isRepeat(elapsed, entry.report.repeatLimit) ? std::optional(*found) : std::nullopt;
}

void Journal::answered(int number, Answer answer)
{
    const int row = m_entries.isEmpty() ? -1 : number - m_entries.constFirst().number;
    if (row < 0 || row >= m_entries.size())
        return;
    m_entries[row].answer = answer;
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

void Journal::clear()
{
    beginResetModel();
    m_entries.clear();
    m_accepted.clear();
    endResetModel();
}

void Journal::forgetOldest()
{
    beginRemoveRows({}, 0, 0);
    const JournalEntry oldest = m_entries.takeFirst();
    const auto accepted = m_accepted.constFind(oldest.repeatKey);
    if (accepted != m_accepted.cend() && accepted->number == oldest.number)
        m_accepted.erase(accepted);
    endRemoveRows();
}

int Journal::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

int Journal::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant Journal::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const JournalEntry& entry = m_entries.at(index.row());
    if (role == Qt::ToolTipRole)
        return plainToolTip(whyNoPopup(entry));
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case Time:
        return entry.time.time().toString(u"HH:mm:ss"_s);
    case Type:
        return nameText(entry.typeName);
    case Title:
        return nameText(entry.title);
    case Who:
        return nameText(entry.who);
    case VerdictColumn:
        return verdictText(entry.verdict());
    case Methods:
        return methodsText(entry);
    default:
        return {};
    }
}

QVariant Journal::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    static constexpr const char* titles[] = {
        QT_TRANSLATE_NOOP("zepa", "Time"),  QT_TRANSLATE_NOOP("zepa", "Verdict"),
        QT_TRANSLATE_NOOP("zepa", "Event"), QT_TRANSLATE_NOOP("zepa", "Title"),
        QT_TRANSLATE_NOOP("zepa", "About"), QT_TRANSLATE_NOOP("zepa", "Methods called")};
    static_assert(std::size(titles) == ColumnCount);
    return QCoreApplication::translate("zepa", titles[section]);
}

} // namespace zepa
