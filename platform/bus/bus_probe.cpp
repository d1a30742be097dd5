// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_probe.h"

#include "bus/bus_greeting.h"

#include <unistd.h>

#include <algorithm>

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
    m_socket = greetBus(address);
    if (m_socket < 0)
        return false;
    m_readable = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &BusProbe::read);
    return true;
}

void BusProbe::read()
{
    const Greeting heard = hearBus(m_socket);
    if (heard == Greeting::NotYet)
        return;
    if (heard == Greeting::Refused)
        return giveUpThisOne();
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
