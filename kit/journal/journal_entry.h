// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/answer_token.h"
#include "kit/journal/report.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace zepa {

/// One posting as the journal keeps it. Texts that are longer than longestMessage are kept shortened.
struct JournalEntry
{
    /// The posting that made the module drop this one.
    struct Earlier
    {
        int number = 0;
        QDateTime time;
        QString type;
        QString title;
    };

    int number = 0; ///< counts up from 1
    QDateTime time;
    QByteArray repeatKey; ///< the same for two postings of which the module takes one for a repeat of the other
    QString type;         ///< identifier
    QString typeName;     ///< as shown to the user; the identifier of an unknown type
    QString title;
    QString text;
    QString who; ///< name of the buddy it is about, or empty
    bool isFromStranger = false;
    Report report;
    std::optional<Earlier> earlier; ///< of a repeat, unless the journal has forgotten it
    std::optional<Answer> answer;

    Verdict verdict() const { return report.verdict(answer); }
};

} // namespace zepa
