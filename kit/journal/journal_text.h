// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/journal_entry.h"

#include <QDateTime>
#include <QList>
#include <QString>

/// The journal in words, in the user's language. Texts of strangers are made fit to be shown.
namespace zepa {

/// All verdicts, in the order in which a list shows them.
QList<Verdict> allVerdicts();
/// As the module counts between two postings: times of day without a date, whole seconds, negative after midnight.
int secondsBetween(const QDateTime& from, const QDateTime& to);
/// A few words: "clicked", "repeat".
QString verdictText(Verdict verdict);

/// The answer to "why did this not pop up?" in a sentence or two.
QString whyNoPopup(const JournalEntry& entry);
/// The methods that were called, in the order of the calls: "Pop-up, Sound".
QString methodsText(const JournalEntry& entry);
/// Everything about it, in lines.
QString detailsText(const JournalEntry& entry);
/// Everything about it on one line, with tabs between time, type, title, person, verdict, methods and the reason.
QString lineText(const JournalEntry& entry);

} // namespace zepa
