// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/extra_methods/methods_log.h"
#include "kit/texts/fault_log.h"

#include <QList>
#include <QProcess>
#include <QString>
#include <QTimer>

namespace zepa {

/// Something to say, and how.
struct Utterance
{
    QString text;
    /// As `espeak-ng --voices` lists it, for example "de"; empty for the speaker's own choice.
    QString voice;
    int wordsPerMinute = 175;
};

/// Speaks through the program espeak-ng, one text after the other, without making the caller wait.
///
/// The program is looked for in PATH each time. The text reaches it through its standard input: no shell, no argument,
/// no file. What does not work gets one line in the log category "zepa.methods".
class Speaker
{
public:
    /// How many texts may wait behind the one that is being spoken; what comes then is dropped. Old news is no use.
    static constexpr qsizetype mostWaiting = 8;

    Speaker();
    /// Falls silent at once.
    ~Speaker();
    Q_DISABLE_COPY_MOVE(Speaker)

    void say(const Utterance& utterance);
    /// How many texts wait or are being spoken.
    qsizetype unfinished() const { return m_waiting.size(); }

private:
    void begin();
    void ended(const QString& problem);

    /// The first one is being spoken.
    QList<Utterance> m_waiting;
    QProcess m_process;
    QTimer m_patience;
    FaultLog m_faults{lcZepaMethods};
};

} // namespace zepa
