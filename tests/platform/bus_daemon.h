// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

/// A private dbus-daemon; ended with this object.
class BusDaemon
{
public:
    BusDaemon() = default;
    ~BusDaemon() { kill(); }
    BusDaemon(const BusDaemon&) = delete;
    BusDaemon& operator=(const BusDaemon&) = delete;

    /// False where it is not installed. `listen` is an address to listen at; the socket address() unless given.
    bool start(const QByteArray& listen = {});
    void kill();
    /// Of its socket, as written in the environment: without a guid.
    QByteArray address() const { return "unix:path=" + socketPath(); }
    QByteArray socketPath() const { return m_folder.filePath(QStringLiteral("bus")).toLocal8Bit(); }
    /// What it printed: with a guid.
    QByteArray printedAddress() const { return m_printed; }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_printed;
};
