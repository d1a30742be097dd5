// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantList>

#include <functional>
#include <map>
#include <optional>

namespace zepa::freedesktop {

/// The session bus and the notification service on it. Talks D-Bus and decides nothing.
///
/// Making the connection waits for the bus; after that nothing here waits for anybody. What arrives comes from the
/// event loop. Signals of others than the owner of the service's name are dropped.
class BusLink : public QObject
{
    Q_OBJECT

public:
    /// Gets the reply, or an error message: exactly once for each call, from the event loop.
    using Reply = std::function<void(const QDBusMessage&)>;

    /// After this time without a reply a call ends with an error, in milliseconds.
    static constexpr int callLimit = 5000;
    /// While there is no bus, open() tries again after this time at the earliest, in milliseconds.
    static constexpr int retryAfter = 1000;

    BusLink();
    ~BusLink() override;
    Q_DISABLE_COPY_MOVE(BusLink)

    /// Connects unless it is connected; false when there is no bus.
    bool open();
    bool isOpen() const { return m_bus.has_value(); }
    /// Whether the name has an owner or the bus can start one. True while the bus has not said yet.
    bool isServiceAvailable() const;
    /// The connection that owns the name; empty for none and while the bus has not said yet.
    QString owner() const { return m_owner; }
    /// Whether `sender`, which replied to a call by the service's name, owns the name (the bus may still owe the news).
    bool isOwner(const QString& sender);

    /// Calls the service by its name, which the bus starts when it can.
    void call(const QString& method, const QVariantList& arguments, Reply reply);
    /// Asks the owner to close a pop-up; starts no service.
    void closeNotification(quint32 id);

Q_SIGNALS:
    /// Also with the new owner empty, and when the bus went away.
    void ownerChanged(const QString& oldOwner, const QString& newOwner);
    void actionInvoked(quint32 id, const QString& key);
    void activationToken(quint32 id, const QString& token);
    void notificationClosed(quint32 id);

private Q_SLOTS:
    // Each has every parameter of its signal: with fewer it would never be called.
    void onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void onActivatableServicesChanged();
    void onActionInvoked(uint id, const QString& key, const QDBusMessage& message);
    void onActivationToken(uint id, const QString& token, const QDBusMessage& message);
    void onNotificationClosed(uint id, uint reason, const QDBusMessage& message);
    void onDisconnected();

private:
    void subscribe();
    void askOwner();
    void askActivatable();
    void send(const QDBusMessage& message, Reply reply);
    void finish(quint64 number, const QDBusMessage& message);
    void setOwner(const QString& owner);

    std::optional<QDBusConnection> m_bus;
    QElapsedTimer m_lastAttempt;
    QString m_owner;
    bool m_ownerKnown = false;
    quint64 m_ownerNews = 0; ///< counts what the bus told unasked
    std::optional<bool> m_activatable;
    std::map<quint64, Reply> m_replies; ///< still owed, by the number of the call
    quint64 m_lastCall = 0;
    std::map<quint64, QDBusMessage> m_failed; ///< ended before they were sent, to be told by m_failure
    QTimer m_failure;
};

} // namespace zepa::freedesktop
