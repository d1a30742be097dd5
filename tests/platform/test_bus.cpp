// SPDX-License-Identifier: Apache-2.0
#include "test_bus.h"

#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

namespace {

/// Returns when it has said something: it is ready then. It does not outlive this process, however this one ends.
bool startAndHear(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    return process.waitForStarted() && process.waitForReadyRead();
}

QStringList programs()
{
    if (TestBus::isBroker())
        return {QStringLiteral("dbus-broker")};
    if (TestBus::isBehindAProxy())
        return {QStringLiteral("dbus-daemon"), QStringLiteral("xdg-dbus-proxy")};
    return {QStringLiteral("dbus-daemon")};
}

} // namespace

TestBus::~TestBus()
{
    kill();
    m_proxy.kill();
    m_proxy.waitForFinished();
}

bool TestBus::isBroker()
{
    return qgetenv("ZEPA_TEST_BUS") == "broker";
}

bool TestBus::isBehindAProxy()
{
    return qgetenv("ZEPA_TEST_BUS") == "proxy";
}

QString TestBus::whatIsMissing()
{
    for (const QString& program : programs()) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program + QStringLiteral(" is not installed");
    }
    return {};
}

bool TestBus::start(const QStringList& limits)
{
    if (isRunning())
        return false;
    const bool started = isBroker() ? startAndHear(m_bus, QStringLiteral(BROKER_CONTROLLER),
                                                   QStringList{path("bus"), path("services")} + limits)
                                    : startAndHear(m_bus, QStringLiteral("dbus-daemon"),
                                                   {QStringLiteral("--config-file=") + path("bus.conf"),
                                                    QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    m_said = m_bus.readLine().trimmed();
    return started && (!isBehindAProxy() || m_proxy.state() != QProcess::NotRunning || startProxy());
}

bool TestBus::startProxy()
{
    // Flatpak's filter for an application that may show notifications. Its names end in ".*", here they are whole:
    // while the proxy finds out whom a pattern means it puts wrong numbers on replies, and a test would fail now and
    // then.
    return startAndHear(m_proxy, QStringLiteral("xdg-dbus-proxy"),
                        {QStringLiteral("--fd=1"), QString::fromLocal8Bit(directAddress()), path("proxy"),
                         QStringLiteral("--filter"), QStringLiteral("--own=org.example.Application"),
                         QStringLiteral("--own=org.mpris.MediaPlayer2.org.example.Application"),
                         QStringLiteral("--talk=org.freedesktop.portal.Desktop"),
                         QStringLiteral("--talk=org.freedesktop.Notifications")});
}

void TestBus::stop() const
{
    ::kill(static_cast<pid_t>(m_bus.processId()), SIGSTOP);
}

void TestBus::kill()
{
    if (!isRunning())
        return;
    m_bus.kill();
    m_bus.waitForFinished();
    QFile::remove(path("bus"));
}
