// SPDX-License-Identifier: Apache-2.0
#include "attention/launcher_entry.h"

using namespace Qt::StringLiterals;

namespace attention {

using zepa::bus::Connection;

QString launcherAddress(const QString& desktopFileName, const QString& applicationName)
{
    const QString ending = u".desktop"_s;
    QString name = desktopFileName.isEmpty() ? applicationName.toLower() : desktopFileName;
    if (!name.endsWith(ending))
        name += ending;
    return u"application://"_s + name;
}

void Launcher::tell(const QString& address, bool isUrgent)
{
    m_address = address;
    m_isUrgent = isUrgent;
    m_isWaiting = true;
    if (m_connection.isNull()) {
        m_connection = Connection::shared();
        if (m_connection.isNull())
            return;
        connect(m_connection, &Connection::opened, this, &Launcher::send);
    }
    m_connection->open();
    send();
}

void Launcher::send()
{
    if (!m_isWaiting || !m_connection->isOpen())
        return;
    m_isWaiting = false;
    zepa::bus::Message update =
        m_connection->newSignal("/com/canonical/Unity/LauncherEntry/1", "com.canonical.Unity.LauncherEntry", "Update");
    update.append(m_address).openArray("{sv}").appendEntry("urgent", m_isUrgent).close();
    m_connection->send(update);
}

} // namespace attention
