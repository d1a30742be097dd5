// SPDX-License-Identifier: Apache-2.0
#include "bus/paced_handshake.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace zepa::bus {

namespace {

/// Of what either side may have said and the other has not heard yet.
constexpr qsizetype mostBytes = 16384;

bool receiveAll(int socket, QByteArray& received)
{
    std::array<char, 1024> bytes = {};
    while (received.size() <= mostBytes) {
        const ssize_t count = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (count > 0)
            received.append(bytes.data(), count);
        else if (count == 0 || errno != EINTR)
            return count < 0 && errno == EAGAIN;
    }
    return false;
}

/// A socket has room for all of a handshake.
bool sendAll(int socket, const QByteArray& text)
{
    return send(socket, text.constData(), static_cast<std::size_t>(text.size()), MSG_DONTWAIT | MSG_NOSIGNAL) ==
           text.size();
}

/// Empty as long as its end is missing.
QByteArray takeLine(QByteArray& text)
{
    const qsizetype end = text.indexOf("\r\n");
    if (end < 0)
        return {};
    QByteArray line = text.left(end + 2);
    text.remove(0, line.size());
    return line;
}

/// sd-bus asked for larger buffers, as far as this user may have them.
void copyBufferSize(int from, int to, int direction)
{
    int size = 0;
    socklen_t length = sizeof size;
    if (getsockopt(from, SOL_SOCKET, direction, &size, &length) != 0)
        return;
    size /= 2; // told doubled
    setsockopt(to, SOL_SOCKET, direction, &size, sizeof size);
}

} // namespace

std::unique_ptr<PacedHandshake> PacedHandshake::connectTo(const QByteArray& socketName)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (socketName.isEmpty() || socketName.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return nullptr;
    std::copy(socketName.begin(), socketName.end(), std::begin(address.sun_path));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) +
                        static_cast<socklen_t>(socketName.size()) + (socketName.startsWith('\0') ? 0 : 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return nullptr;
    // A Unix socket is connected at once or not at all; where the queue is full it says that it would have to wait.
    if (connect(socket, reinterpret_cast<const sockaddr*>(&address), length) != 0) {
        close(socket);
        return nullptr;
    }
    return std::make_unique<PacedHandshake>(socket);
}

PacedHandshake::PacedHandshake(int busSocket) : m_bus(busSocket)
{
    std::array<int, 2> sockets = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data()) == 0) {
        m_client = sockets[0];
        m_relay = sockets[1];
    }
}

PacedHandshake::~PacedHandshake()
{
    for (const int socket : {m_bus, m_client, m_relay}) {
        if (socket >= 0)
            close(socket);
    }
}

int PacedHandshake::takeClientSocket()
{
    return std::exchange(m_client, -1);
}

PacedHandshake::State PacedHandshake::advance()
{
    if (m_state == State::UnderWay &&
        (!receiveAll(m_relay, m_fromClient) || (!m_hasBegun && !receiveAll(m_bus, m_fromBus)) || !passOn()))
        m_state = State::Failed;
    return m_state;
}

bool PacedHandshake::passOn()
{
    while (!m_hasBegun) {
        if (m_awaitsAnswer) {
            const QByteArray answer = takeLine(m_fromBus);
            if (answer.isEmpty())
                return true;
            m_awaitsAnswer = false;
            if (!sendAll(m_relay, answer))
                return false;
        }
        const QByteArray command = takeLine(m_fromClient);
        if (command.isEmpty())
            return true;
        if (!sendAll(m_bus, command))
            return false;
        m_hasBegun = command == "BEGIN\r\n";
        m_awaitsAnswer = !m_hasBegun;
    }
    // A bus answers, it says nothing by itself: sd-bus would miss what was read here.
    if (!m_fromBus.isEmpty())
        return false;
    // sd-bus begins with its messages when it has read every answer.
    if (!m_fromClient.isEmpty())
        m_state = State::Over;
    return m_fromClient.isEmpty() || sendAll(m_bus, m_fromClient);
}

bool PacedHandshake::connectDirectly(int clientSocket) const
{
    copyBufferSize(clientSocket, m_bus, SO_SNDBUF);
    copyBufferSize(clientSocket, m_bus, SO_RCVBUF);
    return dup3(m_bus, clientSocket, O_CLOEXEC) >= 0;
}

} // namespace zepa::bus
