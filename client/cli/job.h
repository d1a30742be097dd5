// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/output.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace zepa::cli {

/// Where a command was asked for.
struct Origin
{
    /// The working folder, absolute: names of files are relative to it.
    QString folder;
    /// The content of Command::inputFile().
    QByteArray input;
    /// Whoever asked is another program; this one goes on when the command is done.
    bool isElsewhere = false;
};

/// One command under way: what it was given, whom it talks to, and how it ended. Whatever a command needs for longer
/// than its start() is a child of the job, which is deleted when nobody wants the command any more.
class Job : public QObject
{
    Q_OBJECT

public:
    /// `sink` takes what the command says; null: this program's own streams.
    Job(Origin origin, OutputSink* sink, QObject* parent = nullptr);

    /// The content of the command's file; empty from then on.
    QByteArray takeInput() { return std::exchange(m_origin.input, {}); }
    bool isElsewhere() const { return m_origin.isElsewhere; }
    const QString& folder() const { return m_origin.folder; }
    /// An absolute path for the name of a file that the user gave; an empty name stays empty.
    QString path(const QString& name) const;

    /// Calls `talk`: what it says goes where this job's output goes. For all that is said after start() returned.
    void speak(const std::function<void()>& talk);

    /// Ends the command; only the first time counts.
    void finish(int code);
    /// The exit code, once there is one.
    std::optional<int> code() const { return m_code; }
    /// The program is about to end: a command that waits for something finishes with what there is.
    void hurry();

Q_SIGNALS:
    void finished();
    void hurried();

private:
    Origin m_origin;
    OutputSink* const m_sink;
    std::optional<int> m_code;
};

} // namespace zepa::cli
