// SPDX-License-Identifier: Apache-2.0
#include "client/cli/help.h"

namespace zepa::cli {

namespace {

QString commonOptions()
{
    return QStringLiteral(
        "  --settings DIR            folder of the settings (default: $XDG_CONFIG_HOME/zepa or ~/.config/zepa)\n"
        "  --help                    this text\n");
}

QString optionLine(const QCommandLineOption& option)
{
    QString name = QStringLiteral("--") + option.names().constFirst();
    if (!option.valueName().isEmpty())
        name += u' ' + option.valueName();
    return QStringLiteral("  %1  %2\n").arg(name.leftJustified(24), option.description());
}

} // namespace

QString usage(const Command& command)
{
    return QStringLiteral("zepa %1 %2").arg(command.name(), command.arguments()).trimmed();
}

QString overview(const std::vector<CommandPointer>& commands)
{
    QString text =
        QStringLiteral("Usage: zepa [VERB ...] [--settings DIR]\n\n"
                       "Announces events to the user and edits the rules for how it is done. Without a verb, it opens\n"
                       "its window.\n");
    for (const CommandPointer& command : commands)
        text += QStringLiteral("\n%1\n    %2\n    Example: %3\n")
                    .arg(usage(*command), command->summary(), command->example());
    text += QStringLiteral("\nOptions of every verb:\n") + commonOptions() +
            QStringLiteral("  --version                 the version of the program\n"
                           "\nExit codes:\n"
                           "  0  done; with post --wait: the pop-up was clicked\n"
                           "  1  it could not be done\n"
                           "  2  the command line or the script is wrong; nothing was done\n"
                           "  3  post --wait: the pop-up went away without a click\n"
                           "  4  post --wait: no pop-up was shown\n"
                           "  6  the running Zepa is busy with too many commands; nothing was done\n"
                           "\nIf Zepa is already running with the same settings, the running instance carries out the\n"
                           "verb. It accepts verbs only from programs of the same user that run outside a sandbox\n"
                           "(Flatpak, Snap).\n"
                           "\nzepa VERB --help says more about one verb.\n");
    return text;
}

QString manual(const Command& command)
{
    QString text = QStringLiteral("Usage: %1\n\n%2\n").arg(usage(command), command.summary());
    if (!command.details().isEmpty())
        text += u'\n' + command.details() + u'\n';
    text += QStringLiteral("\nOptions:\n");
    const QList<QCommandLineOption> options = command.options();
    for (const QCommandLineOption& option : options)
        text += optionLine(option);
    text += commonOptions();
    text += QStringLiteral("\nExample:\n  %1\n").arg(command.example());
    return text;
}

} // namespace zepa::cli
