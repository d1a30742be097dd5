// SPDX-License-Identifier: Apache-2.0
#include "bus/session_bus.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <utility>

namespace zepa::bus {

namespace {

/// A connection that lost its bus stays dead under its name, so each gets a name of its own; also when this code is in
/// a process twice, in the library and in the program.
QString nextConnectionName()
{
    static int count = 0;
    return QStringLiteral("zepa-session-bus-%1-%2").arg(reinterpret_cast<quintptr>(&count), 0, 16).arg(++count);
}

} // namespace

const QString& busName()
{
    static const QString name = QStringLiteral("org.freedesktop.DBus");
    return name;
}

const QString& busPath()
{
    static const QString path = QStringLiteral("/org/freedesktop/DBus");
    return path;
}

QDBusMessage busCall(const QString& method)
{
    return QDBusMessage::createMethodCall(busName(), busPath(), busName(), method);
}

SessionBus::SessionBus()
{
    connect(&m_probe, &BusProbe::answered, this, &SessionBus::connectTo);
    connect(&m_probe, &BusProbe::failed, this, &SessionBus::drop);
}

SessionBus::~SessionBus()
{
    if (m_connection)
        QDBusConnection::disconnectFromPeer(m_connection->name());
}

bool SessionBus::open()
{
    if (m_connection || m_opening)
        return true;
    if (m_lastAttempt.isValid() && !m_lastAttempt.hasExpired(retryAfter))
        return false;
    m_lastAttempt.start();
    m_opening = m_probe.start(sessionBusAddresses());
    return m_opening;
}

void SessionBus::connectTo(const QString& address)
{
    m_opening = false;
    m_connection = QDBusConnection::connectToPeer(address, nextConnectionName());
    if (!m_connection->isConnected()) {
        drop();
        return;
    }
    m_connection->connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                          QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                          SLOT(onDisconnected(QDBusMessage)));
    introduce();
    Q_EMIT opened();
}

void SessionBus::introduce()
{
    const QDBusPendingCall hello = m_connection->asyncCall(busCall(QStringLiteral("Hello")), introductionLimit);
    const auto dropUnlessWelcome = [this, hello, name = m_connection->name()] {
        if (!m_connection || m_connection->name() != name)
            return;
        m_isIntroduced = !hello.isError();
        if (!m_isIntroduced)
            drop();
    };
    // A watcher of a call that failed at once says nothing.
    if (hello.isFinished()) {
        QTimer::singleShot(0, this, dropUnlessWelcome);
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(hello, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, dropUnlessWelcome);
    connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
}

void SessionBus::listen(const QString& sender, const QString& path, const QString& interface, const QString& member,
                        QObject* receiver, const char* slot, const QString& firstArgument)
{
    QDBusMessage match = busCall(QStringLiteral("AddMatch"));
    QString rule = QStringLiteral("type='signal',sender='%1',path='%2',interface='%3',member='%4'")
                       .arg(sender, path, interface, member);
    if (!firstArgument.isEmpty())
        rule += QStringLiteral(",arg0='%1'").arg(firstArgument);
    match << rule;
    m_connection->send(match);
    m_connection->connect(QString(), path, interface, member, receiver, slot);
}

void SessionBus::onDisconnected(const QDBusMessage& message)
{
    // The library's own news has no sender.
    if (m_connection && message.service().isEmpty())
        drop();
}

void SessionBus::drop()
{
    if (m_connection)
        QDBusConnection::disconnectFromPeer(m_connection->name());
    m_connection.reset();
    // One that answered once is worth another try at once.
    if (!std::exchange(m_isIntroduced, false))
        m_lastAttempt.start();
    m_opening = false;
    Q_EMIT closed();
}

} // namespace zepa::bus
