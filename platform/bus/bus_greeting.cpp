// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_greeting.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <iterator>

namespace zepa::bus {

int greetBus(const BusAddress& address)
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    std::copy(address.socketName.begin(), address.socketName.end(), std::begin(name.sun_path));
    const auto length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(address.socketName.size());
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (connection < 0)
        return -1;
    // What the bus accepts is between it and the D-Bus library: any answer to this will do.
    const QByteArray greeting = QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(geteuid()).toHex() + "\r\n";
    // Where the queue is full, connecting fails instead of waiting.
    if (connect(connection, reinterpret_cast<const sockaddr*>(&name), length) == 0 &&
        send(connection, greeting.constData(), static_cast<std::size_t>(greeting.size()), MSG_NOSIGNAL) > 0)
        return connection;
    close(connection);
    return -1;
}

Greeting hearBus(int socket)
{
    std::array<char, 256> bytes = {};
    const ssize_t count = recv(socket, bytes.data(), bytes.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return Greeting::NotYet;
    if (count <= 0)
        return Greeting::Refused;
    const auto end = bytes.begin() + count;
    return std::find(bytes.begin(), end, '\n') == end ? Greeting::NotYet : Greeting::Answered;
}

} // namespace zepa::bus
