// SPDX-License-Identifier: Apache-2.0
#include "test_bus.h"

#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

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
        return {u"dbus-broker"_s};
    if (TestBus::isBehindAProxy())
        return {u"dbus-daemon"_s, u"xdg-dbus-proxy"_s};
    return {u"dbus-daemon"_s};
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
            return program + u" is not installed"_s;
    }
    return {};
}

bool TestBus::start(const QStringList& limits)
{
    if (isRunning())
        return false;
    const bool started =
        isBroker() ? startAndHear(m_bus, QString::fromUtf8(BROKER_CONTROLLER),
                                  QStringList{path("bus"), path("services")} + limits)
                   : startAndHear(m_bus, u"dbus-daemon"_s,
                                  {u"--config-file="_s + path("bus.conf"), u"--nofork"_s, u"--print-address"_s});
    m_said = m_bus.readLine().trimmed();
    return started && (!isBehindAProxy() || m_proxy.state() != QProcess::NotRunning || startProxy());
}

bool TestBus::startProxy()
{
    // Flatpak's filter for an application that may show notifications. Its names end in ".*", here they are whole:
    // while the proxy finds out whom a pattern means it puts wrong numbers on replies, and a test would fail now and
    // then.
    return startAndHear(m_proxy, u"xdg-dbus-proxy"_s,
                        {u"--fd=1"_s, QString::fromLocal8Bit(directAddress()), path("proxy"), u"--filter"_s,
                         u"--own=org.example.Application"_s, u"--own=org.mpris.MediaPlayer2.org.example.Application"_s,
                         u"--talk=org.freedesktop.portal.Desktop"_s, u"--talk=org.freedesktop.Notifications"_s});
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
