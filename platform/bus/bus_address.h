// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace zepa::bus {

/// One way to reach a bus: a local socket.
struct BusAddress
{
    QString text;          ///< as D-Bus libraries take it, one address
    QByteArray socketName; ///< for sockaddr_un, without a final NUL; an abstract name begins with NUL

    friend bool operator==(const BusAddress&, const BusAddress&) = default;
};

/// The local sockets among `addresses` ("unix:path=...;unix:abstract=..."), in their order. What is of another kind,
/// broken or too long for a socket is left out: other kinds cannot be tried without waiting.
QList<BusAddress> localAddresses(const QString& addresses);

/// Where the session bus may be: what the environment says, or else the socket in the user's run-time folder.
QList<BusAddress> sessionBusAddresses();

} // namespace zepa::bus
