// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "client/services/field_value.h"
#include "core/notification_method.h"
#include "core/notification_module.h"

#include <QCommandLineParser>

namespace zepa::cli {

namespace {

class Methods final : public Command
{
public:
    QString name() const override { return QStringLiteral("methods"); }
    QString arguments() const override { return QStringLiteral("[--json]"); }
    QString summary() const override
    {
        return QStringLiteral("Lists the delivery methods and the fields that a rule for each can set.");
    }
    QString example() const override { return QStringLiteral("zepa methods"); }
    QList<QCommandLineOption> options() const override
    {
        return {{QStringLiteral("json"),
                 QStringLiteral("for programs: an array of objects with id, action, icon, fields")}};
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
            json.append(QJsonObject{{QStringLiteral("id"), id},
                                    {QStringLiteral("action"), method.getActionName()},
                                    {QStringLiteral("icon"), method.getActionIcon()},
                                    {QStringLiteral("fields"), described(method.fields)}});
        }
        if (line.isSet(QStringLiteral("json")))
            sayJson(json);
        else
            sayTable({QStringLiteral("METHOD"), QStringLiteral("WHAT IT DOES"), QStringLiteral("FIELDS")}, rows);
        return Success;
    }

private:
    static QJsonArray described(const QList<ZepaField>& fields)
    {
        QJsonArray json;
        for (const ZepaField& field : fields)
            json.append(QJsonObject{{QStringLiteral("id"), field.getId()},
                                    {QStringLiteral("label"), field.getLabel()},
                                    {QStringLiteral("initial"), jsonValue(field)},
                                    {QStringLiteral("allowed"), allowedValues(field)}});
        return json;
    }
};

} // namespace

CommandPointer makeMethods()
{
    return std::make_unique<Methods>();
}

} // namespace zepa::cli
