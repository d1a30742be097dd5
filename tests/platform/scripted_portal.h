// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QStringList>

/// The portal's face of the scripted service: org.freedesktop.portal.Notification, with the options and commands that
/// its file lists.
class ScriptedPortal : public QDBusVirtualObject
{
    Q_OBJECT

public:
    ScriptedPortal(const QStringList& options, QFile& log);

    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override;
    void command(const QString& line);

private:
    struct Shown
    {
        QString id;
        QString sender;
    };

    bool has(const char* option) const { return m_options.contains(QLatin1String(option)); }
    void onProperties(const QDBusMessage& call);
    void onAdd(const QDBusMessage& call);
    /// To the connection that posted the pop-up, as portals do.
    void invoke(qsizetype number, const QString& action, const QVariantList& parameters);
    void write(const QJsonObject& line);

    QDBusConnection m_bus;
    QStringList m_options;
    QFile& m_log;
    QList<Shown> m_shown;
};
