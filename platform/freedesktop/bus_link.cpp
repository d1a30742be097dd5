// SPDX-License-Identifier: Apache-2.0
#include "bus_link.h"

#include "freedesktop_log.h"
#include "notify_image.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace zepa::freedesktop {

namespace {

const QString& serviceName()
{
    static const QString name = QStringLiteral("org.freedesktop.Notifications");
    return name;
}

const QString& servicePath()
{
    static const QString path = QStringLiteral("/org/freedesktop/Notifications");
    return path;
}

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

/// A connection that lost its bus stays dead under its name, so each gets a name of its own.
QString nextConnectionName()
{
    static int count = 0;
    return QStringLiteral("zepa-notifications-%1").arg(++count);
}

QDBusMessage busCall(const QString& method)
{
    return QDBusMessage::createMethodCall(busName(), busPath(), busName(), method);
}

QString noOwnerError()
{
    return QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

BusLink::BusLink()
{
    qDBusRegisterMetaType<NotifyImage>();
    m_failure.setSingleShot(true);
    m_failure.setInterval(0);
    connect(&m_failure, &QTimer::timeout, this, [this] {
        for (const auto& [number, message] : std::exchange(m_failed, {}))
            finish(number, message);
    });
}

BusLink::~BusLink()
{
    if (m_bus)
        QDBusConnection::disconnectFromBus(m_bus->name());
}

bool BusLink::open()
{
    if (m_bus)
        return true;
    if (m_lastAttempt.isValid() && !m_lastAttempt.hasExpired(retryAfter))
        return false;
    m_lastAttempt.start();
    const QString name = nextConnectionName();
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    if (!bus.isConnected()) {
        qCDebug(freedesktopLog) << "no session bus:" << bus.lastError().name();
        QDBusConnection::disconnectFromBus(name);
        return false;
    }
    m_bus = bus;
    subscribe();
    askOwner();
    askActivatable();
    return true;
}

bool BusLink::isServiceAvailable() const
{
    if (!m_bus)
        return false;
    if (!m_owner.isEmpty() || !m_ownerKnown || !m_activatable)
        return true;
    return *m_activatable;
}

bool BusLink::isOwner(const QString& sender)
{
    if (m_owner.isEmpty()) {
        setOwner(sender);
        askOwner();
    }
    return m_owner == sender;
}

void BusLink::call(const QString& method, const QVariantList& arguments, Reply reply)
{
    QDBusMessage message = QDBusMessage::createMethodCall(serviceName(), servicePath(), serviceName(), method);
    message.setArguments(arguments);
    send(message, std::move(reply));
}

void BusLink::closeNotification(quint32 id)
{
    if (m_owner.isEmpty())
        return;
    // To this very owner: the next one may have given the same id to a pop-up of somebody else.
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_owner, servicePath(), serviceName(), QStringLiteral("CloseNotification"));
    message.setArguments({id});
    send(message, [](const QDBusMessage&) {});
}

/// Matches on the well-known name follow a change of owner and keep out what others send in its name.
void BusLink::subscribe()
{
    const auto service = [this](const QString& signal, const char* slot) {
        m_bus->connect(serviceName(), servicePath(), serviceName(), signal, this, slot);
    };
    service(QStringLiteral("ActionInvoked"), SLOT(onActionInvoked(uint, QString, QDBusMessage)));
    service(QStringLiteral("ActivationToken"), SLOT(onActivationToken(uint, QString, QDBusMessage)));
    service(QStringLiteral("NotificationClosed"), SLOT(onNotificationClosed(uint, uint, QDBusMessage)));
    m_bus->connect(busName(), busPath(), busName(), QStringLiteral("NameOwnerChanged"), {serviceName()},
                   QStringLiteral("sss"), this, SLOT(onNameOwnerChanged(QString, QString, QString)));
    m_bus->connect(busName(), busPath(), busName(), QStringLiteral("ActivatableServicesChanged"), this,
                   SLOT(onActivatableServicesChanged()));
    m_bus->connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                   QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                   SLOT(onDisconnected()));
}

void BusLink::askOwner()
{
    QDBusMessage message = busCall(QStringLiteral("GetNameOwner"));
    message.setArguments({serviceName()});
    send(message, [this, news = m_ownerNews](const QDBusMessage& reply) {
        // News that came meanwhile are newer, and a bus that did not answer has not said that there is no owner.
        const bool owned = reply.type() == QDBusMessage::ReplyMessage;
        if (!m_bus || news != m_ownerNews || (!owned && reply.errorName() != noOwnerError()))
            return;
        m_ownerKnown = true;
        setOwner(owned ? reply.arguments().value(0).toString() : QString());
    });
}

void BusLink::askActivatable()
{
    send(busCall(QStringLiteral("ListActivatableNames")), [this](const QDBusMessage& reply) {
        if (m_bus)
            m_activatable = reply.arguments().value(0).toStringList().contains(serviceName());
    });
}

void BusLink::send(const QDBusMessage& message, Reply reply)
{
    const quint64 number = ++m_lastCall;
    m_replies.emplace(number, std::move(reply));
    const QDBusPendingCall pending =
        m_bus ? m_bus->asyncCall(message, callLimit)
              : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, QStringLiteral("no bus")));
    // A watcher of a call that failed at once says nothing.
    if (pending.isFinished()) {
        m_failed.emplace(number, pending.reply());
        m_failure.start();
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(pending, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, number, watcher] {
        watcher->deleteLater();
        finish(number, watcher->reply());
    });
}

void BusLink::finish(quint64 number, const QDBusMessage& message)
{
    const auto node = m_replies.extract(number);
    if (!node.empty())
        node.mapped()(message);
}

void BusLink::setOwner(const QString& owner)
{
    if (owner == m_owner)
        return;
    const QString old = std::exchange(m_owner, owner);
    Q_EMIT ownerChanged(old, owner);
}

void BusLink::onNameOwnerChanged(const QString& /*name*/, const QString& /*oldOwner*/, const QString& newOwner)
{
    ++m_ownerNews;
    m_ownerKnown = true;
    setOwner(newOwner);
}

void BusLink::onActivatableServicesChanged()
{
    askActivatable();
}

void BusLink::onActionInvoked(uint id, const QString& key, const QDBusMessage& message)
{
    if (isOwner(message.service()))
        Q_EMIT actionInvoked(id, key);
}

void BusLink::onActivationToken(uint id, const QString& token, const QDBusMessage& message)
{
    if (isOwner(message.service()))
        Q_EMIT activationToken(id, token);
}

void BusLink::onNotificationClosed(uint id, uint /*reason*/, const QDBusMessage& message)
{
    if (isOwner(message.service()))
        Q_EMIT notificationClosed(id);
}

void BusLink::onDisconnected()
{
    if (!m_bus)
        return;
    qCInfo(freedesktopLog) << "the session bus went away";
    QDBusConnection::disconnectFromBus(m_bus->name());
    m_bus.reset();
    ++m_ownerNews;
    m_ownerKnown = false;
    m_activatable.reset();
    setOwner(QString());
    const QDBusMessage error = QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("the bus went away"));
    for (auto& [number, reply] : std::exchange(m_replies, {}))
        reply(error);
}

} // namespace zepa::freedesktop
