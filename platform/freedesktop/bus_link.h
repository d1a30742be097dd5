// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/call_thread.h"
#include "bus/session_bus.h"

#include <zepa_platform/popups.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QVariantList>

#include <functional>
#include <map>
#include <optional>

namespace zepa::freedesktop {

/// The notification service on the session bus. Talks D-Bus and decides nothing.
///
/// Nothing here waits for anybody. What arrives comes from the event loop. Signals of others than the owner of the
/// service's name are dropped.
class BusLink : public QObject
{
    Q_OBJECT

public:
    using Reply = std::function<void(const QDBusMessage&)>;

    /// After this time without a reply a call ends with an error, in milliseconds.
    static constexpr int callLimit = 5000;
    /// Of so many calls a reply is heard of that comes later than that, however late.
    static constexpr int lateCallLimit = 1000;

    BusLink();
    ~BusLink() override = default;
    Q_DISABLE_COPY_MOVE(BusLink)

    /// Connects unless it is connected or about to; false when there is no bus.
    bool open() { return m_bus.open(); }
    /// Whether the name has an owner or the bus can start one.
    ZepaPopupService service() const;
    /// The connection that owns the name; empty for none and while the bus has not said yet.
    QString owner() const { return m_owner; }
    /// Whether `sender`, which replied to a call by the service's name, owns the name (the bus may still owe the news).
    bool isOwner(const QString& sender);

    /// Calls the service by its name, which the bus starts when it can; at once, or as soon as there is a connection.
    /// `reply` gets the reply, or an error message: exactly once, from the event loop. `late`, if any, gets the reply
    /// to a call that has ended with an error for want of one.
    void call(const QString& method, const QVariantList& arguments, Reply reply, Reply late = {});
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
    void onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner,
                            const QDBusMessage& message);
    void onActivatableServicesChanged(const QDBusMessage& message);
    void onActionInvoked(uint id, const QString& key, const QDBusMessage& message);
    void onActivationToken(uint id, const QString& token, const QDBusMessage& message);
    void onNotificationClosed(uint id, uint reason, const QDBusMessage& message);

private:
    struct Call
    {
        Reply reply; ///< null once it ended with an error
        Reply late;
        qint64 endsAt = 0;                  ///< by m_clock
        std::optional<QDBusMessage> unsent; ///< until there is a connection
        QPointer<QDBusPendingCallWatcher> watcher;
    };

    void onOpened();
    void onClosed();
    void subscribe();
    void askOwner();
    void askActivatable();
    void send(const QDBusMessage& message, Reply reply, Reply late = {});
    void transmit(quint64 number, const QDBusMessage& message);
    void onSent(quint64 number, const QDBusPendingCall& pending);
    void fail(quint64 number, const QDBusMessage& error);
    void finish(quint64 number, const QDBusMessage& message);
    void endOverdueCalls();
    void watchLimits();
    bool isFromOwner(const QDBusMessage& signal) const;
    void setOwner(const QString& owner);

    bus::SessionBus m_bus;
    bus::CallThread m_sender;
    QString m_owner;
    bool m_ownerKnown = false;
    quint64 m_ownerNews = 0; ///< counts what the bus told unasked
    std::optional<bool> m_activatable;
    std::map<quint64, Call> m_calls; ///< still owed a reply, oldest first
    std::map<quint64, Call> m_late;  ///< ended without one
    quint64 m_lastCall = 0;
    std::map<quint64, QDBusMessage> m_failed; ///< ended before they were sent, to be told by m_failure
    QTimer m_failure;
    QElapsedTimer m_clock;
    QTimer m_limit; ///< of the oldest call
};

} // namespace zepa::freedesktop
