// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <array>
#include <memory>

namespace zepa::bus {

/// Stands between sd-bus, which sends all commands of the handshake at once, and a bus until the handshake is over:
/// each command goes to the bus when the one before has been answered. Never waits.
class PacedHandshake
{
public:
    enum class State { UnderWay, Over, Failed };

    /// `socketName` as socketNameOf() returns it. Null when nobody listens there.
    static std::unique_ptr<PacedHandshake> connectTo(const QByteArray& socketName);
    /// Owns `busSocket`, a connected one.
    explicit PacedHandshake(int busSocket);
    ~PacedHandshake();
    Q_DISABLE_COPY_MOVE(PacedHandshake)

    /// The socket for sd-bus, now owned by the caller; -1 when there is none.
    int takeClientSocket();

    /// Passes on what has arrived; to be called when there is something to read from one of awaitedSockets().
    State advance();
    /// -1 where nothing is awaited.
    std::array<int, 2> awaitedSockets() const { return {m_relay, m_hasBegun ? -1 : m_bus}; }
    /// Once it is over: connects `clientSocket`, which sd-bus goes on using, with the bus itself. False on failure.
    bool connectDirectly(int clientSocket) const;

private:
    bool passOn();

    int m_bus;
    int m_client = -1;
    int m_relay = -1; ///< what sd-bus writes arrives here
    QByteArray m_fromClient;
    QByteArray m_fromBus;
    bool m_awaitsAnswer = false;
    bool m_hasBegun = false; ///< what follows is messages
    State m_state = State::UnderWay;
};

} // namespace zepa::bus
