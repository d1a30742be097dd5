// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/bus_probe.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <optional>

namespace zepa::bus {

/// Where the bus itself is, as a caller of its methods and a listener to its signals needs it.
const QString& busName();
const QString& busPath();
/// A call of the bus itself.
QDBusMessage busCall(const QString& method);

/// A connection of our own to the session bus, made without waiting: a bus that accepts and never answers costs the
/// caller nothing, nor the end of the program.
///
/// QtDBus waits for a bus's answer while it connects, and again while it follows the owner of a name. So the bus is a
/// mere peer to QtDBus here; that the connection introduces itself, and what it wants to hear, are ordinary messages.
/// Main thread only; everything is signalled from the event loop.
class SessionBus : public QObject
{
    Q_OBJECT

public:
    /// The bus's answer to the introduction takes no longer than this, in milliseconds.
    static constexpr int introductionLimit = 5000;
    /// While there is no bus, open() tries again after this time at the earliest, in milliseconds.
    static constexpr int retryAfter = 1000;

    SessionBus();
    ~SessionBus() override;
    Q_DISABLE_COPY_MOVE(SessionBus)

    /// Connects unless it is connected or about to. False when there is no bus.
    bool open();
    bool isOpening() const { return m_opening; }
    bool isOpen() const { return m_connection.has_value(); }
    /// Only while it is open. Messages may be sent from opened() on: the introduction is before them in the queue.
    const QDBusConnection& connection() const { return *m_connection; }
    /// Only while it is open: calls `slot` for a signal that the bus passes on for `sender`, a well-known name
    /// included. The slot must look at the message's sender all the same: anybody may send a signal to us alone.
    void listen(const QString& sender, const QString& path, const QString& interface, const QString& member,
                QObject* receiver, const char* slot, const QString& firstArgument = {});

Q_SIGNALS:
    void opened();
    /// It went away, or did not come in the first place.
    void closed();

private Q_SLOTS:
    void onDisconnected(const QDBusMessage& message);

private:
    void connectTo(const QString& address);
    void introduce();
    void drop();

    BusProbe m_probe;
    bool m_opening = false;
    std::optional<QDBusConnection> m_connection;
    bool m_isIntroduced = false; ///< the bus has answered on this connection
    QElapsedTimer m_lastAttempt; ///< that failed or may still
};

} // namespace zepa::bus
