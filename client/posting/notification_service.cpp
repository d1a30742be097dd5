// SPDX-License-Identifier: Apache-2.0
#include "client/posting/notification_service.h"

#include "client/posting/event_wait.h"

#include <Growl/Growl.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QStringList>

#include <chrono>

namespace zepa {

namespace {

using std::chrono::milliseconds;

const QString serviceName = QStringLiteral("org.freedesktop.Notifications");

/// Sends a call and handles events until its reply is there. An invalid message when there is none in time.
QDBusMessage ask(const QDBusMessage& call, milliseconds limit)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return {};
    // Our own limit comes first: the bus's would look like an answer.
    const QDBusPendingCall pending = bus.asyncCall(call, static_cast<int>(limit.count()) + 1000);
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
    // Until the bus has said otherwise, a service counts as there. Ours is asked the same, later: when it has answered,
    // the library's answer is on its way.
    const bool isThere =
        busNamesService(QStringLiteral("ListNames")) || busNamesService(QStringLiteral("ListActivatableNames"));
    handleEventsUntil([isThere] { return (Growl_IsRunning() != 0) == isThere; }, milliseconds(2000));
}

void flushPopups()
{
    if (!Growl_IsRunning())
        return;
    // A service answers questions in their order. By the first answer it has also said what it can do, which pop-ups
    // wait for, five seconds at most; by the next ones it has got the pop-ups themselves.
    const QDBusMessage question = QDBusMessage::createMethodCall(
        serviceName, QStringLiteral("/org/freedesktop/Notifications"), serviceName, QStringLiteral("GetCapabilities"));
    for (int round = 0; round < 3; ++round) {
        // Any answer will do. Without one the pop-ups have left all the same, and wait in the service's queue.
        if (ask(question, milliseconds(6000)).type() == QDBusMessage::InvalidMessage)
            return;
    }
}

} // namespace zepa
