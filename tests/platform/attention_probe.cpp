// SPDX-License-Identifier: Apache-2.0
// An application for the desktop tests: as many windows as its argument says, commands on standard input, and on
// standard output what happened.
#include <zepa_platform/attention.h>

#include <QGuiApplication>
#include <QRasterWindow>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

void say(const std::string& line)
{
    std::cout << line << std::endl;
}

void obey(const std::string& command, const std::vector<std::unique_ptr<QRasterWindow>>& windows)
{
    if (command == "request")
        zepaRequestAttention();
    else if (command == "hide")
        windows.front()->hide();
    else if (command == "name")
        zepaSetAttentionWindow(windows.front().get());
    else
        QCoreApplication::quit();
    say("done " + command);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(u"Zepa"_s);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &application,
                     [](Qt::ApplicationState state) { say(state == Qt::ApplicationActive ? "active" : "inactive"); });

    const int count = QCoreApplication::arguments().value(1).toInt();
    std::vector<std::unique_ptr<QRasterWindow>> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(std::make_unique<QRasterWindow>());
        windows.back()->resize(200, 100);
        windows.back()->show();
        say("window " + std::to_string(windows.back()->winId()));
    }

    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&windows] {
        std::string command;
        std::getline(std::cin, command);
        obey(command, windows);
    });
    say("ready");
    return QCoreApplication::exec();
}
