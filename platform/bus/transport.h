// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QObject>

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

struct sd_bus;
class QSocketNotifier;

namespace zepa::bus {

/// Microseconds of the monotonic clock, as sd-bus counts them.
using Time = std::int64_t;
Time now();

class PacedHandshake;

/// A connection on its way to a bus; null when nobody listens there. Never waits. Where `handshake` is non-null after
/// it, that has to be advanced and, when it is over, to be connected directly.
sd_bus* startBus(const QByteArray& address, std::unique_ptr<PacedHandshake>& handshake);

/// One sd-bus connection in Qt's event loop: a notifier for each direction, and a time at which it wants to be looked
/// at. It is made for one address and forgotten when it is lost.
///
/// Every message is handed out outside sd_bus_process(), which cannot be entered again: so whoever gets one may handle
/// events.
class Transport
{
public:
    class Listener
    {
    public:
        Listener() = default;
        virtual ~Listener() = default;
        Q_DISABLE_COPY_MOVE(Listener)

        /// There is something to do: calls process(), and takes care that the transport is there until that returns.
        virtual void onWakeUp() = 0;
        // Each of these may stop the transport.
        virtual void onReady() = 0;
        virtual void onMessage(const Message& message) = 0;
        /// Something was read or written; called after the above.
        virtual void onProgress() = 0;
        virtual void onLost() = 0;
    };

    explicit Transport(Listener& listener);
    ~Transport();
    Q_DISABLE_COPY_MOVE(Transport)

    /// False when nobody listens there; else onReady() or onLost() follows from the event loop, unless it is silent.
    bool start(const QByteArray& address);
    /// Without waiting; what is still queued is lost.
    void stop();
    bool isStarted() const { return m_bus != nullptr; }
    bool isReady() const { return m_isReady; }

    sd_bus* bus() const { return m_bus; }
    /// `cookie` non-null when a reply is wanted. False when it was not sent.
    bool send(const Message& message, std::uint64_t* cookie);
    std::size_t queuedBytes() const { return m_queuedBytes; }
    std::size_t queuedMessages() const { return m_queued.size(); }

    /// When process() must be called, whatever the socket says.
    std::optional<Time> deadline() const;
    void process();

private:
    QSocketNotifier* newNotifier(int socket, bool isForWriting);
    void watchHandshake();
    /// False when it failed.
    bool advanceHandshake();
    void watch();
    void countQueue();

    Listener& m_listener;
    sd_bus* m_bus = nullptr;
    std::uint64_t m_generation = 0; ///< counts starts and stops
    bool m_isReady = false;
    bool m_hasMore = false;                      ///< stopped reading so that others get their turn
    std::unique_ptr<PacedHandshake> m_handshake; ///< null when it is over
    std::array<QSocketNotifier*, 2> m_handshakeReadable = {};
    QObject m_retired; ///< owns notifiers that are about to be deleted
    QSocketNotifier* m_readable = nullptr;
    QSocketNotifier* m_writable = nullptr;
    int m_socket = -1;
    std::deque<std::size_t> m_queued; ///< sizes of what waits for the socket
    std::size_t m_queuedBytes = 0;
};

} // namespace zepa::bus
