// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_probe.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

namespace zepa::bus {

BusProbe::BusProbe()
{
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, &BusProbe::giveUpThisOne);
}

BusProbe::~BusProbe()
{
    // At the end of the program nobody deletes anything later.
    m_readable.reset();
    hangUp();
}

bool BusProbe::start(const QList<BusAddress>& addresses)
{
    hangUp();
    m_remaining = addresses;
    m_silence.setInterval(limit / std::max(1, static_cast<int>(addresses.size())));
    return tryNext();
}

bool BusProbe::tryNext()
{
    while (!m_remaining.isEmpty()) {
        const BusAddress address = m_remaining.takeFirst();
        if (greet(address)) {
            m_address = address.text;
            m_silence.start();
            return true;
        }
        hangUp();
    }
    return false;
}

bool BusProbe::greet(const BusAddress& address)
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    std::copy(address.socketName.begin(), address.socketName.end(), std::begin(name.sun_path));
    const auto length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(address.socketName.size());
    m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    // Where the queue is full this fails instead of waiting.
    if (m_socket < 0 || ::connect(m_socket, reinterpret_cast<const sockaddr*>(&name), length) != 0)
        return false;
    // Whatever the bus says to this, it is alive; what it accepts is between it and the library.
    const QByteArray greeting = QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(geteuid()).toHex() + "\r\n";
    if (send(m_socket, greeting.constData(), static_cast<std::size_t>(greeting.size()), MSG_NOSIGNAL) < 0)
        return false;
    m_readable = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &BusProbe::read);
    return true;
}

void BusProbe::read()
{
    std::array<char, 256> bytes = {};
    const ssize_t count = recv(m_socket, bytes.data(), bytes.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0)
        return giveUpThisOne();
    if (std::find(bytes.begin(), bytes.begin() + count, '\n') == bytes.begin() + count)
        return;
    const QString address = m_address;
    hangUp();
    Q_EMIT answered(address);
}

void BusProbe::giveUpThisOne()
{
    hangUp();
    if (!tryNext())
        Q_EMIT failed();
}

void BusProbe::hangUp()
{
    m_silence.stop();
    if (m_readable) {
        // It may be the one that calls.
        m_readable->setEnabled(false);
        m_readable.release()->deleteLater();
    }
    if (m_socket >= 0)
        close(m_socket);
    m_socket = -1;
}

} // namespace zepa::bus
