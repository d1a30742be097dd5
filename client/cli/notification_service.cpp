// SPDX-License-Identifier: Apache-2.0
#include "client/cli/notification_service.h"

#include <Growl/Growl.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace zepa::cli {

namespace {

using std::chrono::milliseconds;

const QString serviceName = QStringLiteral("org.freedesktop.Notifications");

/// Handles events until `done` says so or the time is over.
bool handleEventsUntil(const std::function<bool()>& done, milliseconds limit)
{
    QEventLoop loop;
    QTimer beat;
    QElapsedTimer clock;
    clock.start();
    QObject::connect(&beat, &QTimer::timeout, &loop, [&] {
        if (done() || clock.hasExpired(limit.count()))
            loop.quit();
    });
    beat.start(milliseconds(5));
    if (!done())
        loop.exec();
    return done();
}

/// Sends a call and handles events until its reply is there. An invalid message when there is none in time.
QDBusMessage ask(const QDBusMessage& call, milliseconds limit)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return {};
    const QDBusPendingCall pending = bus.asyncCall(call, static_cast<int>(limit.count()));
    handleEventsUntil([&pending] { return pending.isFinished(); }, limit);
    return pending.isFinished() ? pending.reply() : QDBusMessage();
}

QDBusMessage busCall(const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

bool busNamesService(const QString& method)
{
    const QDBusMessage reply = ask(busCall(method), milliseconds(2000));
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.arguments().value(0).toStringList().contains(serviceName);
}

} // namespace

void waitForNotificationService()
{
    const auto isRunning = [] { return Growl_IsRunning() != 0; };
    if (isRunning())
        return;
    if (busNamesService(QStringLiteral("ListNames")) || busNamesService(QStringLiteral("ListActivatableNames")))
        handleEventsUntil(isRunning, milliseconds(2000));
}

QString whyNoPopup()
{
    if (Growl_IsRunning())
        return {};
    return QDBusConnection::sessionBus().isConnected() ? QStringLiteral("no notification service")
                                                       : QStringLiteral("no session bus, so no notification service");
}

void flushPopups()
{
    if (!Growl_IsRunning())
        return;
    // A service answers calls in their order: what was sent before this question has arrived when the answer comes.
    QDBusMessage question =
        QDBusMessage::createMethodCall(serviceName, QStringLiteral("/org/freedesktop/Notifications"), serviceName,
                                       QStringLiteral("GetServerInformation"));
    for (int round = 0; round < 2; ++round)
        ask(question, milliseconds(1500));
}

} // namespace zepa::cli
