// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/call_table.h"
#include "bus/name_owner.h"
#include "bus/object_table.h"
#include "bus/signal_table.h"
#include "bus/transport.h"

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QList>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace zepa::bus {

/// What a Connection is made of: attempts to connect, and the tables that arriving messages are looked up in. Held by
/// the connection and by whoever must not find it destroyed under their feet.
class ConnectionCore final : public std::enable_shared_from_this<ConnectionCore>, private Transport::Listener
{
public:
    explicit ConnectionCore(Connection& connection);

    void open();
    void close();
    /// The connection is being destroyed: nobody is told anything more.
    void detach();

    Connection::State state() const { return m_state; }
    bool isOpen() const { return m_state == Connection::State::Open; }
    QByteArray uniqueName() const;
    SignalTable& signalTable() { return m_signals; }
    NameOwners& owners() { return m_owners; }
    ObjectTable& objects() { return m_objects; }
    const CallTable& calls() const { return m_calls; }

    Message newCall(const char* destination, const char* path, const char* interface, const char* member);
    Message busCall(const char* member) { return newCall(busName, busPath, busName, member); }
    Message newSignal(const char* path, const char* interface, const char* member, const char* destination);
    Message newReply(const Message& call);
    Message newError(const Message& call, const char* name, const QString& text);
    static Message localError(const char* name) { return Message::localError(name); }
    static std::uint64_t replyCookie(const Message& reply);

    bool canCall();
    void call(const Message& message, const QObject* context, std::function<void(const Message&)> reply,
              CallOptions options = {});
    bool send(const Message& message);
    /// A question was refused: everything that was is asked again after a while.
    void askAgainLater();

private:
    void onWakeUp() override;
    void onReady() override;
    void onMessage(const Message& message) override;
    void onProgress() override;
    void onLost() override;

    void startAttempt();
    void tryNextAddress();
    void onAttemptFailed();
    void askAgain();
    void tellOfRoom();
    bool hasRoomInQueue(std::size_t bytes) const;
    bool transmit(const Message& message, std::uint64_t* cookie);
    PendingCall pendingCall(const Message& message);

    void arm();
    void wakeUpBy(Time time);
    void onTimer();

    Connection* m_connection; ///< null once it is destroyed
    Connection::State m_state = Connection::State::Closed;
    Transport m_transport{*this};
    QList<QByteArray> m_addresses; ///< still to be tried
    Time m_addressLimit = 0;       ///< for each of them
    std::optional<Time> m_attemptEndsAt;
    /// The attempt got its time once more, since the program held it up.
    bool m_isAttemptProlonged = false;
    std::optional<Time> m_retryAt;
    std::optional<Time> m_lastFailure;
    Time m_retryDelay;
    Time m_openSince = 0;
    std::optional<Time> m_askAgainAt;
    Time m_askAgainDelay;
    bool m_mustTellClosed = false;
    bool m_mustCheck = false; ///< a message could not be written: the bus may be gone
    bool m_wantsRoom = false;

    SignalTable m_signals{*this};
    NameOwners m_owners{*this};
    ObjectTable m_objects{*this};
    CallTable m_calls;
    QTimer m_timer;
    Time m_armedFor = 0;
};

} // namespace zepa::bus
