// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "test_bus.h"

#include <QByteArray>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// A private bus (TestBus) with a folder of its own; ended with this object.
class BusDaemon
{
public:
    /// False where it is not installed. `listen` is an address for dbus-daemon to listen at; the socket unless given.
    bool start(const QByteArray& listen = {});
    void kill() { m_bus.kill(); }
    /// As written in the environment: without a guid.
    QByteArray address() const { return m_bus.address(); }
    QByteArray socketPath() const { return m_folder.filePath(u"bus"_s).toLocal8Bit(); }
    /// What dbus-daemon printed: with a guid.
    QByteArray printedAddress() const { return m_bus.said(); }

private:
    QTemporaryDir m_folder;
    TestBus m_bus{m_folder.path()};
};
