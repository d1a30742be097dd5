// SPDX-License-Identifier: Apache-2.0
#include "client/cli/command_line.h"
#include "client/cli/output.h"
#include "client/cli/run.h"
#include "client/cli/standard_streams.h"
#include "client/client.h"
#include "client/environment.h"
#include "client/instance/bus_name.h"
#include "client/instance/remote_client.h"
#include "client/instance/server.h"
#include "client/languages.h"
#include "client/termination.h"
#include "client/window/client_requests.h"
#include "client/window/main_window.h"
#include "kit/rules/rule_backup.h"
#include "kit/widgets/bring_to_front.h"

#include <zepa_platform/bus.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QWidget>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The client with its window, until the user quits; or the window of the client that runs already. `token` is what the
/// desktop gave us for coming to the front.
int runWindow(zepa::Client& client, zepa::bus::Connection& bus, const QString& token)
{
    using namespace zepa::instance;
    using zepa::ClientRequests;
    // It answers calls from the moment on in which the name is ours.
    Server server(client, bus);
    const QByteArray name = busName(client.settings().getSettingsDir());
    if (bus.isOpen()) {
        const auto claim = RemoteClient(bus, name).claim(token);
        if (claim != RemoteClient::Claim::First)
            return claim == RemoteClient::Claim::Second ? zepa::cli::Success : zepa::cli::Failure;
    }
    server.keepName(name);
    zepa::MainWindow window(client);
    QObject::connect(&ClientRequests::instance(), &ClientRequests::show, &window, &zepa::MainWindow::bringToFront);
    // Not quit(): that asks the windows first, and ours would rather hide.
    QObject::connect(&ClientRequests::instance(), &ClientRequests::quit, qApp, [] { QCoreApplication::exit(); });
    window.show();
    zepa::quitOnTermination();
    return QCoreApplication::exec();
}

/// What the status icon's menu asks of a command that has no window of its own.
void obeyRequests()
{
    using zepa::ClientRequests;
    QObject::connect(&ClientRequests::instance(), &ClientRequests::show, qApp, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (window->isVisible() && window->windowType() != Qt::Popup)
                zepa::bringToFront(*window);
        }
    });
    // Whoever waits for an answer goes on as if there was none.
    QObject::connect(&ClientRequests::instance(), &ClientRequests::quit, qApp,
                     [] { QCoreApplication::exit(zepa::cli::NotClicked); });
    zepa::quitOnTermination();
}

int run(int argc, char** argv)
{
    using namespace zepa;

    cli::filterLog();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const cli::CommandLine line(arguments);
    if (!line.command() && !line.opensWindow())
        return line.code();

    const bool reachesTheUser = line.opensWindow() || line.command()->reachesTheUser();
    const bool platformIsChosen = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    const bool busAnswers = prepareEnvironment(reachesTheUser);
    // Qt takes both out of the environment.
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN", qEnvironmentVariable("DESKTOP_STARTUP_ID"));
    // Qt has options of its own; none of the words on our command line is meant for it.
    int count = 1;
    QApplication app(count, argv);
    QApplication::setApplicationName(u"zepa"_s);
    QApplication::setApplicationDisplayName(u"Zepa"_s);
    QApplication::setApplicationVersion(QString::fromUtf16(ZEPA_VERSION));
    QApplication::setDesktopFileName(u"zepa"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    // Before the module and its methods are made: they translate their texts once and keep them.
    installTranslations(app);

    // Somebody who chose a platform that shows nothing knows why.
    if (line.opensWindow() && !hasDisplay() && !platformIsChosen) {
        cli::printError(u"no display: cannot open the window; see \"zepa --help\" for commands that "
                        u"work without one"_s);
        return cli::WrongUsage;
    }

    // A folder that a command would have to make is a slip of the pen. The user's own is made for a new user.
    if (line.command() && !line.command()->changesSettings() && line.namesSettingsFolder() &&
        !QFileInfo::exists(line.settingsFolder())) {
        cli::printError(u"the settings folder %1 does not exist"_s.arg(cli::onOneLine(line.settingsFolder())));
        return cli::Failure;
    }

    bus::Connection& bus = *bus::Connection::shared();
    QByteArray input;
    if (line.command()) {
        const auto content = cli::readInput(line);
        if (!content)
            return cli::WrongUsage;
        input = *content;
    }
    // One that did not answer is not waited for again.
    if (!busAnswers)
        bus.open();
    else if (instance::openBus(bus) && line.command()) {
        instance::RemoteClient running(bus, instance::busName(line.settingsFolder()));
        if (const auto code = running.handOver(arguments, QDir::currentPath(), input))
            return *code;
    }

    Client client(line.settingsFolder(), Client::Start::Later);
    if (!line.namesSettingsFolder())
        client.ruleBackup().ownSettingsFolder();
    if (!client.settings().isUsable())
        cli::printError((client.settings().hasRuleFolder()
                             ? u"cannot write to %1: your rules are in use as they are, and changes will not be saved"_s
                             : u"cannot write to %1: the default rules are in use, and changes will not be saved"_s)
                            .arg(cli::onOneLine(client.settings().getSettingsDir())));
    else if (!client.settings().isFileReadable())
        cli::printError(u"cannot read the settings file %1; all settings have their defaults"_s.arg(
            cli::onOneLine(client.settings().settingsFile())));
    // Pop-ups and windows show the desktop's picture for it where it is installed.
    QApplication::setWindowIcon(
        QIcon::fromTheme(u"zepa"_s, QIcon(client.settings().getCurrentThemeDir() + u"/icons/zepa.png"_s)));
    if (line.opensWindow())
        return runWindow(client, bus, token);

    if (!client.start()) {
        cli::printError(u"another program is still changing rules in %1; nothing was done. Try again later"_s.arg(
            cli::onOneLine(client.settings().getSettingsDir())));
        return cli::Failure;
    }

    const QStringList news = client.ruleBackup().news();
    for (const QString& sentence : news)
        cli::printError(cli::onOneLine(sentence));
    obeyRequests();
    if (reachesTheUser && !hasDisplay())
        cli::printError(u"no display: status icon, chat windows and attention requests are unavailable"_s);
    return cli::runHere(line, input, client);
}

} // namespace

int main(int argc, char** argv)
{
    zepa::cli::reserveClosedStreams();
    const int code = zepa::cli::exitCodeAfterOutput(run(argc, argv));
    zepa::endBySignal();
    return code;
}
