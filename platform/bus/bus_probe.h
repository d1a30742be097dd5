// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "bus/bus_address.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace zepa::bus {

/// Finds out which of some addresses has a bus that answers, by the first line of the handshake.
///
/// A D-Bus library connects to a socket before it says anything, and that can wait for ever: for a bus that is stuck
/// and whose queue of new connections is full. So a library is sent only where somebody has answered a moment ago.
class BusProbe : public QObject
{
    Q_OBJECT

public:
    /// How long all addresses together may keep silent, in milliseconds.
    static constexpr int limit = 5000;

    BusProbe();
    ~BusProbe() override;
    Q_DISABLE_COPY_MOVE(BusProbe)

    /// Tries the addresses in their order. False, and no signal, when nobody listens at any of them. An earlier
    /// attempt is given up.
    bool start(const QList<BusAddress>& addresses);

Q_SIGNALS:
    // One of the two for each start() that was true.
    void answered(const QString& address);
    void failed();

private:
    bool tryNext();
    bool greet(const BusAddress& address);
    void read();
    void giveUpThisOne();
    void hangUp();

    QList<BusAddress> m_remaining;
    QString m_address; ///< that is being tried
    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_readable;
    QTimer m_silence;
};

} // namespace zepa::bus
