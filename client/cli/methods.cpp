// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "core/notification_method.h"
#include "core/notification_module.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

class Methods final : public Command
{
public:
    QString name() const override { return u"methods"_s; }
    QString arguments() const override { return u"[--json]"_s; }
    QString summary() const override
    {
        return u"Lists the delivery methods and the fields that a rule for each can set."_s;
    }
    QString example() const override { return u"zepa methods"_s; }
    QList<QCommandLineOption> options() const override
    {
        return {{u"json"_s, u"for programs: an array of objects with id, action, icon, fields"_s}};
    }
    qsizetype fewestArguments() const override { return 0; }
    qsizetype mostArguments() const override { return 0; }

    int run(const QCommandLineParser& line, Client& client) const override
    {
        QJsonArray json;
        QList<QStringList> rows;
        const QStringList ids = methodIds(client);
        for (const QString& id : ids) {
            const ZepaNotificationMethod& method = *client.module().getMethods().value(id);
            rows.append({id, method.getActionName(), assignments(method.fields)});
            json.append(QJsonObject{{u"id"_s, id},
                                    {u"action"_s, method.getActionName()},
                                    {u"icon"_s, method.getActionIcon()},
                                    {u"fields"_s, described(method.fields)}});
        }
        sayRows({u"METHOD"_s, u"WHAT IT DOES"_s, u"FIELDS"_s}, rows, json, line.isSet(u"json"_s));
        return Success;
    }

private:
    static QJsonArray described(const QList<ZepaField>& fields)
    {
        QJsonArray json;
        for (const ZepaField& field : fields)
            json.append(QJsonObject{{u"id"_s, field.getId()},
                                    {u"label"_s, field.getLabel()},
                                    {u"initial"_s, jsonValue(field)},
                                    {u"allowed"_s, allowedJson(field)}});
        return json;
    }
};

} // namespace

CommandPointer makeMethods()
{
    return std::make_unique<Methods>();
}

} // namespace zepa::cli
