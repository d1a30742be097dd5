// SPDX-License-Identifier: Apache-2.0
// A program that uses the bus and ends in a way that its argument says; exit code 0 when all went well.
#include <zepa_platform/bus.h>

#include <QCoreApplication>
#include <QTimer>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace {

using zepa::bus::Connection;
using zepa::bus::Message;

/// `calls` calls that nobody answers.
void callNobody(Connection& connection, int calls)
{
    for (int i = 0; i < calls; ++i) {
        // To a connection of our own that has no time: it never handles an event again.
        connection.call(connection.newCall(connection.uniqueName().constData(), "/a", "a.b", "C"), nullptr,
                        [](const Message&) {});
    }
}

/// Until it is open and a question has been answered; false after half a minute.
bool works(QCoreApplication& application)
{
    Connection* connection = Connection::shared();
    if (connection == nullptr)
        return false;
    QObject::connect(connection, &Connection::opened, &application, [&application, connection] {
        connection->call(connection->newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"),
                         &application, [](const Message& reply) { QCoreApplication::exit(reply.isError() ? 1 : 0); });
    });
    connection->open();
    constexpr int limit = 30000;
    QTimer::singleShot(limit, &application, [] { QCoreApplication::exit(1); });
    return QCoreApplication::exec() == 0;
}

int runAgain(int argc, char** argv)
{
    for (int i = 0; i < 2; ++i) {
        QCoreApplication application(argc, argv);
        if (!works(application))
            return 1;
    }
    return Connection::shared() == nullptr ? 0 : 1;
}

int runFork(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!works(application))
        return 1;
    Connection& connection = *Connection::shared();
    const pid_t child = fork();
    if (child == 0) {
        const Message message = connection.newSignal("/a", "a.b", "C");
        const bool wasSent = connection.send(message);
        connection.close();
        _exit(wasSent ? 1 : 0);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0)
        return 1;
    // Ours is untouched.
    bool isOpen = false;
    connection.call(connection.newCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"), &application,
                    [&](const Message& reply) {
                        isOpen = !reply.isError();
                        QCoreApplication::quit();
                    });
    QCoreApplication::exec();
    return isOpen ? 0 : 1;
}

int runExit(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!works(application))
        return 1;
    QTimer::singleShot(0, &application, [] {
        callNobody(*Connection::shared(), Connection::callLimit);
        std::exit(0);
    });
    return QCoreApplication::exec() + 1;
}

int runEnd(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (!works(application))
        return 1;
    callNobody(*Connection::shared(), Connection::callLimit);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const char* manner = argc > 1 ? argv[1] : "";
    if (std::strcmp(manner, "again") == 0)
        return runAgain(argc, argv);
    if (std::strcmp(manner, "fork") == 0)
        return runFork(argc, argv);
    if (std::strcmp(manner, "exit") == 0)
        return runExit(argc, argv);
    return runEnd(argc, argv);
}
