// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "core/notification.h"
#include "core/notification_module.h"

#include <QCommandLineParser>

namespace zepa::cli {

namespace {

class Types final : public Command
{
public:
    QString name() const override { return QStringLiteral("types"); }
    QString arguments() const override { return QStringLiteral("[--json]"); }
    QString summary() const override { return QStringLiteral("Lists the notification types: what can be posted."); }
    QString example() const override { return QStringLiteral("zepa types"); }
    QList<QCommandLineOption> options() const override
    {
        return {
            {QStringLiteral("json"), QStringLiteral("for programs: an array of objects with id, name, description")}};
    }
    qsizetype fewestArguments() const override { return 0; }
    qsizetype mostArguments() const override { return 0; }

    int run(const QCommandLineParser& line, Client& client) const override
    {
        QJsonArray json;
        QList<QStringList> rows;
        const QStringList ids = typeIds(client);
        for (const QString& id : ids) {
            const ZepaNotification& type = *client.module().getNotifications().value(id);
            rows.append({id, type.getName(), type.getDescription()});
            json.append(QJsonObject{{QStringLiteral("id"), id},
                                    {QStringLiteral("name"), type.getName()},
                                    {QStringLiteral("description"), type.getDescription()}});
        }
        if (line.isSet(QStringLiteral("json")))
            sayJson(json);
        else
            sayTable({QStringLiteral("TYPE"), QStringLiteral("NAME"), QStringLiteral("DESCRIPTION")}, rows);
        return Success;
    }
};

} // namespace

CommandPointer makeTypes()
{
    return std::make_unique<Types>();
}

} // namespace zepa::cli
