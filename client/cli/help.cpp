// SPDX-License-Identifier: Apache-2.0
#include "client/cli/help.h"

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

QString commonOptions()
{
    return u"  --settings DIR            settings folder (default: $XDG_CONFIG_HOME/zepa or ~/.config/zepa)\n"
           u"  --help                    this text\n"_s;
}

QString optionLine(const QCommandLineOption& option)
{
    QString name = u"--"_s + option.names().constFirst();
    if (!option.valueName().isEmpty())
        name += u' ' + option.valueName();
    return u"  %1  %2\n"_s.arg(name.leftJustified(24), option.description());
}

} // namespace

QString usage(const Command& command)
{
    return u"zepa %1 %2"_s.arg(command.name(), command.arguments()).trimmed();
}

QString overview(const std::vector<CommandPointer>& commands)
{
    QString text = u"Usage: zepa [VERB ...] [--settings DIR]\n\n"
                   u"Announces events and manages notification rules. Without a command, opens the main window.\n"_s;
    for (const CommandPointer& command : commands)
        text += u"\n%1\n    %2\n    Example: %3\n"_s.arg(usage(*command), command->summary(), command->example());
    text += u"\nOptions of every command:\n"_s + commonOptions() +
            u"  --version                 the version of the program\n"
            u"\nExit codes:\n"
            u"  0  done; with post --wait: the pop-up was clicked\n"
            u"  1  failed\n"
            u"  2  the command line or the script is wrong; nothing was done\n"
            u"  3  post --wait: the pop-up went away without a click\n"
            u"  4  post --wait: no pop-up was shown\n"
            u"  6  the running Zepa is busy with too many commands; nothing was done\n"
            u"\nIf Zepa is already running with the same settings, the running instance carries out the\n"
            u"verb. It accepts verbs only from programs of the same user that run outside a sandbox\n"
            u"(Flatpak, Snap).\n"
            u"\nRun \"zepa COMMAND --help\" for details.\n"_s;
    return text;
}

QString manual(const Command& command)
{
    QString text = u"Usage: %1\n\n%2\n"_s.arg(usage(command), command.summary());
    if (!command.details().isEmpty())
        text += u'\n' + command.details() + u'\n';
    text += u"\nOptions:\n"_s;
    const QList<QCommandLineOption> options = command.options();
    for (const QCommandLineOption& option : options)
        text += optionLine(option);
    text += commonOptions();
    text += u"\nExample:\n  %1\n"_s.arg(command.example());
    return text;
}

} // namespace zepa::cli
