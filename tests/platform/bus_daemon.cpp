// SPDX-License-Identifier: Apache-2.0
#include "bus_daemon.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

bool BusDaemon::start(const QByteArray& listen)
{
    QDir(m_folder.path()).mkpath(u"services"_s);
    QFile configuration(m_folder.filePath(u"bus.conf"_s));
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    // Over TCP nobody's user can be told.
    configuration.write("<busconfig><type>session</type><listen>" +
                        (listen.isEmpty() ? m_bus.directAddress() : listen) + "</listen>" +
                        (listen.isEmpty() ? "<auth>EXTERNAL</auth>" : "<auth>ANONYMOUS</auth>") +
                        "<allow_anonymous/><policy context=\"default\"><allow user=\"*\"/>"
                        "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                        "<allow own=\"*\"/></policy><limit name=\"max_replies_per_connection\">50000</limit>"
                        "</busconfig>\n");
    configuration.close();
    return m_bus.start();
}
