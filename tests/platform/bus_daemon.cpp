// SPDX-License-Identifier: Apache-2.0
#include "bus_daemon.h"

#include <QFile>

#include <csignal>
#include <sys/prctl.h>

bool BusDaemon::start(const QByteArray& listen)
{
    QFile configuration(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    // Over TCP nobody's user can be told.
    configuration.write("<busconfig><type>session</type><listen>" + (listen.isEmpty() ? address() : listen) +
                        "</listen>" + (listen.isEmpty() ? "<auth>EXTERNAL</auth>" : "<auth>ANONYMOUS</auth>") +
                        "<allow_anonymous/><policy context=\"default\"><allow user=\"*\"/>"
                        "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                        "<allow own=\"*\"/></policy><limit name=\"max_replies_per_connection\">50000</limit>"
                        "</busconfig>\n");
    configuration.close();
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // It does not outlive this process, however this one ends.
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + configuration.fileName(),
                                                    QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    if (!m_process.waitForStarted() || !m_process.waitForReadyRead())
        return false;
    m_printed = m_process.readLine().trimmed();
    return true;
}

void BusDaemon::kill()
{
    m_process.kill();
    m_process.waitForFinished();
    QFile::remove(QString::fromLocal8Bit(socketPath()));
}
