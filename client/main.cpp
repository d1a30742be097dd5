// SPDX-License-Identifier: Apache-2.0
#include "client/cli/command_line.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "client/environment.h"
#include "client/services/client_requests.h"

#include <QApplication>
#include <QWidget>

namespace {

/// What the status icon's menu asks for.
void obeyRequests()
{
    using zepa::ClientRequests;
    QObject::connect(&ClientRequests::instance(), &ClientRequests::show, qApp, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (!window->isVisible() || window->windowType() == Qt::Popup)
                continue;
            window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
            window->raise();
            window->activateWindow();
        }
    });
    // Whoever waits for an answer goes on as if there was none.
    QObject::connect(&ClientRequests::instance(), &ClientRequests::quit, qApp,
                     [] { QCoreApplication::exit(zepa::cli::NotClicked); });
}

} // namespace

int main(int argc, char** argv)
{
    using namespace zepa;

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const cli::CommandLine line(arguments);
    if (!line.command())
        return line.code();

    prepareEnvironment(line.command()->reachesTheUser());
    // Qt has options of its own; none of the words on our command line is meant for it.
    int count = 1;
    QApplication app(count, argv);
    QApplication::setApplicationName(QStringLiteral("zepa"));
    QApplication::setApplicationDisplayName(QStringLiteral("Zepa"));
    QApplication::setApplicationVersion(QStringLiteral(ZEPA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("zepa"));
    QApplication::setQuitOnLastWindowClosed(false);

    obeyRequests();

    Client client(line.settingsFolder());
    if (!client.settings().isUsable())
        cli::complain(QStringLiteral("the settings folder %1 cannot be written: rules have their defaults, and nothing "
                                     "that changes is kept")
                          .arg(cli::onOneLine(client.settings().getSettingsDir())));
    if (line.command()->reachesTheUser() && !hasDisplay())
        cli::complain(QStringLiteral("no display: no status icon, no chat window, no attention request"));
    return line.command()->run(line.parser(), client);
}
