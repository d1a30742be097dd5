// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// Keeps account of what an editor said it stored, and counts what a later one does not find.
///
/// Reads the editor's report, one line each:
///   found TYPE RULES      at its start, for each type
///   mended COUNT          how many files it had to put back or take away before
///   ready                 it begins to edit
///   tries TYPE RULES      what it is about to make of the type
///   stored TYPE RULES     it is on the disk
///   unstored TYPE RULES   the disk has what it had
///   refused TYPE RULES    nothing was changed
class Ledger
{
public:
    /// Whatever the next editor finds is right: these are the defaults.
    void learnDefaults() { m_learns = true; }
    /// What a client must find at its first start, also when an earlier one was cut off.
    void expectDefaults(const QHash<QString, QStringList>& defaults) { m_known = defaults; }

    /// The next bytes of the report; the last line may be cut off.
    void read(const QByteArray& bytes);
    /// The editor that wrote the report is gone.
    void endOfReport();
    bool isReady() const { return m_isReady; }
    const QHash<QString, QStringList>& known() const { return m_known; }

    int stored = 0;
    int unstored = 0;
    int refused = 0;
    int lost = 0;
    int mended = 0;
    int checkedRules = 0;

private:
    void readLine(const QList<QByteArray>& words);
    void check(const QString& type, const QStringList& found);

    /// What was stored last.
    QHash<QString, QStringList> m_known;
    /// What may be there instead, since it was tried and nobody said how it ended.
    QHash<QString, QList<QStringList>> m_possible;
    QByteArray m_rest;
    bool m_isReady = false;
    bool m_learns = false;
};

/// One line of the report.
QByteArray reportLine(const char* what, const QString& type, const QStringList& rules);
