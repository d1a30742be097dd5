// SPDX-License-Identifier: Apache-2.0
#include "attention/launcher_entry.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QThreadPool>
#include <QVariantMap>

namespace attention {

namespace {

/// One thread, so that updates keep their order. Never deleted: its destructor would wait for a bus that is stuck.
QThreadPool& worker()
{
    static QThreadPool& pool = []() -> QThreadPool& {
        auto* created = new QThreadPool;
        created->setMaxThreadCount(1);
        // A program that ends right after an update still sends it, and gives up on a bus that does not answer.
        qAddPostRoutine([] {
            constexpr int patienceInMilliseconds = 200;
            worker().clear();
            worker().waitForDone(patienceInMilliseconds);
        });
        return *created;
    }();
    return pool;
}

} // namespace

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

void sendToLauncher(const QDBusMessage& update)
{
    worker().start([update] { QDBusConnection::sessionBus().send(update); });
}

} // namespace attention
