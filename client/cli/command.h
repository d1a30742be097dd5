// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/exit_code.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace zepa {
class Client;
}

namespace zepa::cli {

class Job;

/// One verb of the program.
class Command
{
public:
    Command() = default;
    virtual ~Command() = default;
    Q_DISABLE_COPY_MOVE(Command)

    /// The word or words that call it: "rule set".
    virtual QString name() const = 0;
    /// What stands behind the name: "TYPE METHOD FIELD=VALUE...".
    virtual QString arguments() const = 0;
    /// One sentence for the overview.
    virtual QString summary() const = 0;
    /// A whole command line that does something, and one line on what.
    virtual QString example() const = 0;
    /// Further paragraphs for `zepa VERB --help`.
    virtual QString details() const { return {}; }
    /// Its options beside --settings and --help.
    virtual QList<QCommandLineOption> options() const { return {}; }
    /// How few and how many arguments it takes beside options.
    virtual qsizetype fewestArguments() const = 0;
    virtual qsizetype mostArguments() const = 0;
    /// Whether the user is to see or hear something. A command that only answers a question needs no display.
    virtual bool reachesTheUser() const { return false; }
    /// Whether it stores something in the settings folder, which is made for that. Others only read what is there.
    virtual bool changesSettings() const { return false; }
    /// Arguments as typed, made into what the option parser understands.
    virtual QStringList normalised(const QStringList& arguments) const { return arguments; }

    /// The file whose content it works on, "-" for standard input; null for none. Whoever was asked to carry out the
    /// command reads it.
    virtual QString inputFile(const QCommandLineParser& /*line*/) const { return {}; }

    /// Begins it. It ends with job.finish(), at once or later. Number of arguments and options are checked already.
    virtual void start(const QCommandLineParser& line, Client& client, Job& job) const;

protected:
    /// For commands that are over when this returns, and override nothing else: does it and gives the exit code.
    virtual int run(const QCommandLineParser& line, Client& client) const;
};

} // namespace zepa::cli
