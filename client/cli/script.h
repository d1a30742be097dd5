// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace zepa::cli {

/// A script of events: one JSON object a line, in the order of time. Empty lines are passed over.
///
///   {"at": 1.5, "type": "message_received", "title": "Anna", "text": "Lunch?", "buddy": "Anna"}
///
/// "type" and "title" are required. "at" is in seconds from the start and defaults to that of the line above. A
/// relative "icon" is relative to the script's folder; an "action" runs in the folder in which the script is played.
struct Script
{
    QList<Event> events;
    /// What is wrong, one line each: "FILE:LINE: field "FIELD": PROBLEM". Nothing is to be played then, and there are
    /// no events. Of more than mostProblems, the last line gives the number: "FILE: and 7 more".
    QStringList problems;
};

/// The latest time that a line may name, in seconds.
inline constexpr int latestTime = 86400;
/// So many problems are named.
inline constexpr int mostProblems = 20;
/// A line may have so many bytes.
inline constexpr int longestLine = 1048576;

/// Folders that relative names in a script are relative to, both absolute.
struct ScriptFolders
{
    QString pictures;
    QString actions;
};

/// Reads a script piece by piece, so that a long one leaves the event loop its turns.
class ScriptReader
{
public:
    /// @param content  the script, in UTF-8
    /// @param name     the script's name in messages
    /// @param folders  where what it names is looked for
    /// @param types    the notification types that may be posted
    ScriptReader(QByteArray content, const QString& name, const ScriptFolders& folders, const QStringList& types);
    ~ScriptReader();
    Q_DISABLE_COPY_MOVE(ScriptReader)

    /// Reads on for a few milliseconds. False when the script has been read to its end.
    bool readOn();
    /// The script as far as it was read; to be called once.
    Script take();

private:
    void readLine();

    class LineReader;
    const QByteArray m_content;
    const std::unique_ptr<LineReader> m_reader;
    qsizetype m_at = 0;
    QList<Event> m_events;
};

/// A whole script at once, with the parameters of the reader.
Script readScript(const QByteArray& content, const QString& name, const ScriptFolders& folders,
                  const QStringList& types);

} // namespace zepa::cli
