// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The private bus of a test, ended with this object. The environment's ZEPA_TEST_BUS says which: dbus-daemon where it
/// says nothing, dbus-broker for "broker", and for "proxy" dbus-daemon with xdg-dbus-proxy before it, which lets
/// through what Flatpak lets through for an application that may show notifications.
class TestBus
{
public:
    /// Keeps its socket "bus" in `folder`, finds the configuration of dbus-daemon "bus.conf" there and service files in
    /// "services".
    explicit TestBus(const QString& folder) : m_folder(folder) {}
    ~TestBus();
    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    static bool isBroker();
    static bool isBehindAProxy();
    /// Why a test must be skipped; empty where all is installed.
    static QString whatIsMissing();

    /// `limits` are options of dbus-broker, which others ignore. False, too, when it runs already.
    bool start(const QStringList& limits = {});
    /// SIGSTOP: it lives and does nothing, until it is killed.
    void stop() const;
    /// It dies without a word, and its socket goes too. A proxy stays, as Flatpak's does.
    void kill();
    /// The line that it said when it was ready: its address from dbus-daemon.
    QByteArray said() const { return m_said; }
    qint64 processId() const { return m_bus.processId(); }
    bool isRunning() const { return m_bus.state() != QProcess::NotRunning; }
    /// Where the tested program finds it.
    QByteArray address() const { return isBehindAProxy() ? addressOf("proxy") : directAddress(); }
    /// Where everybody else does: outside the sandbox.
    QByteArray directAddress() const { return addressOf("bus"); }

private:
    QString path(const char* file) const { return m_folder + u'/' + QLatin1String(file); }
    QByteArray addressOf(const char* socket) const { return "unix:path=" + path(socket).toLocal8Bit(); }
    bool startProxy();

    const QString m_folder;
    QProcess m_bus;
    QProcess m_proxy;
    QByteArray m_said;
};
