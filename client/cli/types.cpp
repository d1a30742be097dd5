// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "core/notification.h"
#include "core/notification_module.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

class Types final : public Command
{
public:
    QString name() const override { return u"types"_s; }
    QString arguments() const override { return u"[--json]"_s; }
    QString summary() const override { return u"Lists the notification types: what can be posted."_s; }
    QString example() const override { return u"zepa types"_s; }
    QList<QCommandLineOption> options() const override
    {
        return {{u"json"_s, u"for programs: an array of objects with id, name, description"_s}};
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
            json.append(
                QJsonObject{{u"id"_s, id}, {u"name"_s, type.getName()}, {u"description"_s, type.getDescription()}});
        }
        sayRows({u"TYPE"_s, u"NAME"_s, u"DESCRIPTION"_s}, rows, json, line.isSet(u"json"_s));
        return Success;
    }
};

} // namespace

CommandPointer makeTypes()
{
    return std::make_unique<Types>();
}

} // namespace zepa::cli
