// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/commands.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace zepa::cli {

/// The command line, taken apart before anything is started: a wrong one needs no display and changes nothing.
class CommandLine
{
public:
    /// `arguments` without the program's name.
    explicit CommandLine(const QStringList& arguments);

    /// The command to run; null when there is no verb (see opensWindow()) or the answer is already said (help,
    /// version, an error) and code() is all there is.
    const Command* command() const { return m_command; }
    int code() const { return m_code; }
    /// Without a verb the program opens its window.
    bool opensWindow() const { return m_opensWindow; }
    /// What was wrong is that there is no such verb.
    bool isVerbUnknown() const { return m_isVerbUnknown; }

    const QCommandLineParser& parser() const { return m_parser; }
    /// What --settings names, or the user's own folder.
    QString settingsFolder() const;
    bool namesSettingsFolder() const;

private:
    void choose(QStringList& arguments);
    void parse(const QStringList& arguments);
    void fail(const QString& problem);

    std::vector<CommandPointer> m_commands;
    QCommandLineParser m_parser;
    const Command* m_command = nullptr;
    bool m_opensWindow = false;
    bool m_isVerbUnknown = false;
    int m_code = Success;
};

} // namespace zepa::cli
