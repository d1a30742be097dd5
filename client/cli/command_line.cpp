// SPDX-License-Identifier: Apache-2.0
#include "client/cli/command_line.h"

#include "client/cli/help.h"
#include "client/cli/output.h"
#include "client/services/base_folders.h"

#include <algorithm>

namespace zepa::cli {

namespace {

const QString settingsOption = QStringLiteral("settings");
const QString helpOption = QStringLiteral("help");

QString firstWords(const QStringList& words, qsizetype count)
{
    return words.first(std::min(count, words.size())).join(u' ');
}

} // namespace

CommandLine::CommandLine(const QStringList& arguments)
{
    m_commands = allCommands();
    m_parser.addOption({settingsOption, {}, QStringLiteral("DIR")});
    m_parser.addOption({{helpOption, QStringLiteral("h")}, {}});
    m_parser.addOption({QStringLiteral("version"), {}});

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
        if (arguments[at] == QStringLiteral("--help") || arguments[at] == QStringLiteral("-h")) {
            passOn(Stream::Output, overview(m_commands).toUtf8());
            return;
        }
        if (arguments[at] == QStringLiteral("--version")) {
            say(QStringLiteral("zepa %1").arg(QStringLiteral(ZEPA_VERSION)));
            return;
        }
        at += arguments[at] == QStringLiteral("--settings") ? 2 : 1;
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
    fail(QStringLiteral("there is no verb \"%1\"; there are: %2")
             .arg(onOneLine(words.constFirst()), names.join(QStringLiteral(", "))));
}

void CommandLine::parse(const QStringList& arguments)
{
    if (m_command)
        m_parser.addOptions(m_command->options());
    const bool understood = m_parser.parse(QStringList{QStringLiteral("zepa")} +
                                           (m_command ? m_command->normalised(arguments) : arguments));
    if (m_command && m_parser.isSet(helpOption)) {
        passOn(Stream::Output, manual(*m_command).toUtf8());
        m_command = nullptr;
        return;
    }
    if (!understood)
        return fail(onOneLine(m_parser.errorText()));
    if (m_parser.isSet(settingsOption) && m_parser.value(settingsOption).isEmpty())
        return fail(QStringLiteral("--settings needs the name of a folder"));
    if (!m_command)
        return;
    const qsizetype count = m_parser.positionalArguments().size();
    if (count < m_command->fewestArguments())
        return fail(QStringLiteral("%1 is missing").arg(m_command->arguments().section(u' ', count, count)));
    if (count > m_command->mostArguments())
        return fail(QStringLiteral("\"%1\" is too much")
                        .arg(onOneLine(m_parser.positionalArguments().at(m_command->mostArguments()))));
}

void CommandLine::fail(const QString& problem)
{
    complain(problem);
    complain(m_command ? QStringLiteral("usage: %1").arg(usage(*m_command))
                       : QStringLiteral("zepa --help shows what it can do"));
    m_command = nullptr;
    m_opensWindow = false;
    m_code = WrongUsage;
}

} // namespace zepa::cli
