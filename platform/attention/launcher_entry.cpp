// SPDX-License-Identifier: Apache-2.0
#include "attention/launcher_entry.h"

#include <QDBusConnection>
#include <QVariantMap>

#include <utility>

namespace attention {

QString launcherAddress(const QString& desktopFileName, const QString& applicationName)
{
    const QString ending = QStringLiteral(".desktop");
    QString name = desktopFileName.isEmpty() ? applicationName.toLower() : desktopFileName;
    if (!name.endsWith(ending))
        name += ending;
    return QStringLiteral("application://") + name;
}

QDBusMessage launcherUpdate(const QString& address, bool urgent)
{
    QDBusMessage update =
        QDBusMessage::createSignal(QStringLiteral("/com/canonical/Unity/LauncherEntry/1"),
                                   QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    update << address << QVariantMap{{QStringLiteral("urgent"), urgent}};
    return update;
}

Launcher::Launcher()
{
    connect(&m_bus, &zepa::bus::SessionBus::opened, this, &Launcher::sendWaiting);
    connect(&m_bus, &zepa::bus::SessionBus::closed, this, [this] { m_waiting.clear(); });
}

void Launcher::send(const QDBusMessage& update)
{
    if (!m_bus.open())
        return;
    m_waiting.append(update);
    if (m_waiting.size() > waitingLimit)
        m_waiting.removeFirst();
    sendWaiting();
}

void Launcher::sendWaiting()
{
    if (!m_bus.isOpen())
        return;
    for (const QDBusMessage& update : std::exchange(m_waiting, {}))
        m_bus.connection().send(update);
}

} // namespace attention
