// SPDX-License-Identifier: Apache-2.0
#include "client/cli/command_line.h"

#include "client/cli/help.h"
#include "client/cli/output.h"
#include "kit/files/base_folders.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

const QString settingsOption = u"settings"_s;
const QString helpOption = u"help"_s;

QString firstWords(const QStringList& words, qsizetype count)
{
    return words.first(std::min(count, words.size())).join(u' ');
}

} // namespace

CommandLine::CommandLine(const QStringList& arguments)
{
    m_commands = allCommands();
    m_parser.addOption({settingsOption, {}, u"DIR"_s});
    m_parser.addOption({{helpOption, u"h"_s}, {}});
    m_parser.addOption({u"version"_s, {}});

    QStringList rest = arguments;
    choose(rest);
    if (m_command || m_opensWindow)
        parse(rest);
}

QString CommandLine::settingsFolder() const
{
    return m_parser.isSet(settingsOption) ? m_parser.value(settingsOption) : configFolder();
}

bool CommandLine::namesSettingsFolder() const
{
    return m_parser.isSet(settingsOption);
}

/// Finds the verb and takes its words out of `arguments`.
void CommandLine::choose(QStringList& arguments)
{
    qsizetype at = 0;
    while (at < arguments.size() && arguments[at].startsWith(u'-')) {
        if (arguments[at] == u"--help"_s || arguments[at] == u"-h"_s) {
            passOn(Stream::Output, overview(m_commands).toUtf8());
            return;
        }
        if (arguments[at] == u"--version"_s) {
            say(u"zepa %1"_s.arg(QString::fromUtf16(ZEPA_VERSION)));
            return;
        }
        at += arguments[at] == u"--settings"_s ? 2 : 1;
    }

    const QStringList words = arguments.mid(at);
    m_opensWindow = words.isEmpty();
    if (m_opensWindow)
        return;
    for (const CommandPointer& command : m_commands) {
        const qsizetype length = command->name().count(u' ') + 1;
        if (firstWords(words, length) != command->name())
            continue;
        m_command = command.get();
        arguments.remove(at, length);
        return;
    }

    m_isVerbUnknown = true;
    QStringList names;
    for (const CommandPointer& command : m_commands)
        names.append(command->name());
    fail(u"unknown command \"%1\"; commands are: %2"_s.arg(onOneLine(words.constFirst()), names.join(u", "_s)));
}

void CommandLine::parse(const QStringList& arguments)
{
    if (m_command)
        m_parser.addOptions(m_command->options());
    const bool understood =
        m_parser.parse(QStringList{u"zepa"_s} + (m_command ? m_command->normalised(arguments) : arguments));
    if (m_command && m_parser.isSet(helpOption)) {
        passOn(Stream::Output, manual(*m_command).toUtf8());
        m_command = nullptr;
        return;
    }
    if (!understood)
        return fail(onOneLine(m_parser.errorText()));
    if (m_parser.isSet(settingsOption) && m_parser.value(settingsOption).isEmpty())
        return fail(u"--settings needs a folder"_s);
    if (!m_command)
        return;
    const qsizetype count = m_parser.positionalArguments().size();
    if (count < m_command->fewestArguments())
        return fail(u"missing argument: %1"_s.arg(m_command->arguments().section(u' ', count, count)));
    if (count > m_command->mostArguments())
        return fail(u"unexpected argument \"%1\""_s.arg(
            onOneLine(m_parser.positionalArguments().at(m_command->mostArguments()))));
}

void CommandLine::fail(const QString& problem)
{
    printError(problem);
    printError(m_command ? u"usage: %1"_s.arg(usage(*m_command)) : u"Run \"zepa --help\" for a list of commands."_s);
    m_command = nullptr;
    m_opensWindow = false;
    m_code = WrongUsage;
}

} // namespace zepa::cli
