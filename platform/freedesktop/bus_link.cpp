// SPDX-License-Identifier: Apache-2.0
#include "bus_link.h"

#include "freedesktop_log.h"
#include "notify_image.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCall>

#include <algorithm>
#include <limits>
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

QString noOwnerError()
{
    return QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
}

QDBusMessage noBus()
{
    return QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("no bus"));
}

} // namespace

BusLink::BusLink()
{
    qDBusRegisterMetaType<NotifyImage>();
    m_clock.start();
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &BusLink::endOverdueCalls);
    m_failure.setSingleShot(true);
    m_failure.setInterval(0);
    connect(&m_failure, &QTimer::timeout, this, [this] {
        for (const auto& [number, message] : std::exchange(m_failed, {}))
            finish(number, message);
    });
    connect(&m_bus, &bus::SessionBus::opened, this, &BusLink::onOpened);
    connect(&m_sender, &bus::CallThread::sent, this, &BusLink::onSent);
    connect(&m_bus, &bus::SessionBus::closed, this, &BusLink::onClosed);
}

ZepaPopupService BusLink::service() const
{
    if (!m_bus.isOpen())
        return m_bus.isOpening() ? ZepaPopupService::NotKnownYet : ZepaPopupService::NoBus;
    if (!m_owner.isEmpty())
        return ZepaPopupService::There;
    if (!m_ownerKnown || !m_activatable)
        return ZepaPopupService::NotKnownYet;
    return *m_activatable ? ZepaPopupService::There : ZepaPopupService::None;
}

bool BusLink::isOwner(const QString& sender)
{
    if (m_owner.isEmpty()) {
        setOwner(sender);
        askOwner();
    }
    return m_owner == sender;
}

void BusLink::call(const QString& method, const QVariantList& arguments, Reply reply, Reply late)
{
    QDBusMessage message = QDBusMessage::createMethodCall(serviceName(), servicePath(), serviceName(), method);
    message.setArguments(arguments);
    send(message, std::move(reply), std::move(late));
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

void BusLink::onOpened()
{
    // Questions first: what the bus says of the owner then comes before anything that the owner says.
    subscribe();
    askOwner();
    askActivatable();
    for (auto& [number, call] : m_calls) {
        if (call.unsent)
            transmit(number, *std::exchange(call.unsent, std::nullopt));
    }
}

/// Matches on the well-known name follow a change of owner and keep out what others send in its name.
void BusLink::subscribe()
{
    const auto service = [this](const QString& signal, const char* slot) {
        m_bus.listen(serviceName(), servicePath(), serviceName(), signal, this, slot);
    };
    service(QStringLiteral("ActionInvoked"), SLOT(onActionInvoked(uint, QString, QDBusMessage)));
    service(QStringLiteral("ActivationToken"), SLOT(onActivationToken(uint, QString, QDBusMessage)));
    service(QStringLiteral("NotificationClosed"), SLOT(onNotificationClosed(uint, uint, QDBusMessage)));
    m_bus.listen(bus::busName(), bus::busPath(), bus::busName(), QStringLiteral("NameOwnerChanged"), this,
                 SLOT(onNameOwnerChanged(QString, QString, QString, QDBusMessage)), serviceName());
    m_bus.listen(bus::busName(), bus::busPath(), bus::busName(), QStringLiteral("ActivatableServicesChanged"), this,
                 SLOT(onActivatableServicesChanged(QDBusMessage)));
}

void BusLink::askOwner()
{
    QDBusMessage message = bus::busCall(QStringLiteral("GetNameOwner"));
    message.setArguments({serviceName()});
    send(message, [this, news = m_ownerNews](const QDBusMessage& reply) {
        // News that came meanwhile are newer, and a bus that did not answer has not said that there is no owner.
        const bool owned = reply.type() == QDBusMessage::ReplyMessage;
        if (!m_bus.isOpen() || news != m_ownerNews || (!owned && reply.errorName() != noOwnerError()))
            return;
        m_ownerKnown = true;
        setOwner(owned ? reply.arguments().value(0).toString() : QString());
    });
}

void BusLink::askActivatable()
{
    send(bus::busCall(QStringLiteral("ListActivatableNames")), [this](const QDBusMessage& reply) {
        if (m_bus.isOpen())
            m_activatable = reply.arguments().value(0).toStringList().contains(serviceName());
    });
}

void BusLink::send(const QDBusMessage& message, Reply reply, Reply late)
{
    const quint64 number = ++m_lastCall;
    Call call{std::move(reply), std::move(late), m_clock.elapsed() + callLimit, std::nullopt, nullptr};
    if (m_bus.isOpening())
        call.unsent = message;
    m_calls.emplace(number, std::move(call));
    watchLimits();
    if (m_bus.isOpen())
        transmit(number, message);
    else if (!m_bus.isOpening())
        fail(number, noBus());
}

void BusLink::transmit(quint64 number, const QDBusMessage& message)
{
    // The limit is our own, so that what comes later is heard of.
    constexpr int noLimit = std::numeric_limits<int>::max();
    m_sender.send(m_bus.connection(), message, m_calls.at(number).late ? noLimit : 2 * callLimit, number);
}

void BusLink::onSent(quint64 number, const QDBusPendingCall& pending)
{
    const auto call = m_calls.find(number);
    if (call == m_calls.end())
        return;
    // A watcher of a call that failed at once says nothing.
    if (pending.isFinished()) {
        finish(number, pending.reply());
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(pending, this);
    call->second.watcher = watcher;
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, number, watcher] {
        watcher->deleteLater();
        finish(number, watcher->reply());
    });
}

void BusLink::fail(quint64 number, const QDBusMessage& error)
{
    m_failed.emplace(number, error);
    m_failure.start();
}

void BusLink::finish(quint64 number, const QDBusMessage& message)
{
    if (const auto call = m_calls.extract(number); !call.empty())
        call.mapped().reply(message);
    else if (const auto late = m_late.extract(number); !late.empty() && message.type() == QDBusMessage::ReplyMessage)
        late.mapped().late(message);
}

void BusLink::endOverdueCalls()
{
    const QDBusMessage error = QDBusMessage::createError(QDBusError::NoReply, QStringLiteral("no reply in time"));
    while (!m_calls.empty() && m_calls.begin()->second.endsAt <= m_clock.elapsed()) {
        auto call = m_calls.extract(m_calls.begin());
        const Reply reply = std::exchange(call.mapped().reply, {});
        if (call.mapped().late && call.mapped().watcher)
            m_late.insert(std::move(call));
        else
            delete call.mapped().watcher.data();
        if (m_late.size() > lateCallLimit)
            delete m_late.extract(m_late.begin()).mapped().watcher.data();
        reply(error);
    }
    watchLimits();
}

void BusLink::watchLimits()
{
    if (m_calls.empty())
        m_limit.stop();
    else if (!m_limit.isActive())
        m_limit.start(static_cast<int>(std::max<qint64>(0, m_calls.begin()->second.endsAt - m_clock.elapsed())));
}

bool BusLink::isFromOwner(const QDBusMessage& signal) const
{
    return !m_owner.isEmpty() && signal.service() == m_owner;
}

void BusLink::setOwner(const QString& owner)
{
    if (owner == m_owner)
        return;
    const QString old = std::exchange(m_owner, owner);
    Q_EMIT ownerChanged(old, owner);
}

void BusLink::onNameOwnerChanged(const QString& name, const QString& /*oldOwner*/, const QString& newOwner,
                                 const QDBusMessage& message)
{
    if (message.service() != bus::busName() || name != serviceName())
        return;
    ++m_ownerNews;
    m_ownerKnown = true;
    setOwner(newOwner);
}

void BusLink::onActivatableServicesChanged(const QDBusMessage& message)
{
    if (message.service() == bus::busName())
        askActivatable();
}

void BusLink::onActionInvoked(uint id, const QString& key, const QDBusMessage& message)
{
    if (isFromOwner(message))
        Q_EMIT actionInvoked(id, key);
}

void BusLink::onActivationToken(uint id, const QString& token, const QDBusMessage& message)
{
    if (isFromOwner(message))
        Q_EMIT activationToken(id, token);
}

void BusLink::onNotificationClosed(uint id, uint /*reason*/, const QDBusMessage& message)
{
    if (isFromOwner(message))
        Q_EMIT notificationClosed(id);
}

void BusLink::onClosed()
{
    if (m_ownerKnown)
        qCInfo(freedesktopLog) << "the session bus went away";
    ++m_ownerNews;
    m_ownerKnown = false;
    m_activatable.reset();
    m_late.clear();
    m_failed.clear();
    setOwner(QString());
    for (auto& [number, call] : std::exchange(m_calls, {})) {
        delete call.watcher.data();
        call.reply(noBus());
    }
    watchLimits();
}

} // namespace zepa::freedesktop
