// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

class Rules final : public Command
{
public:
    QString name() const override { return u"rules"_s; }
    QString arguments() const override { return u"[TYPE] [--json]"_s; }
    QString summary() const override
    {
        return u"Lists the rules: which methods announce which type, with which settings."_s;
    }
    QString example() const override { return u"zepa rules message_received"_s; }
    QString details() const override { return u"Rules are listed in the order they are called, newest first."_s; }
    QList<QCommandLineOption> options() const override
    {
        return {{u"json"_s, u"for programs: an array of objects with type, method, settings"_s}};
    }
    qsizetype fewestArguments() const override { return 0; }
    qsizetype mostArguments() const override { return 1; }

    int run(const QCommandLineParser& line, Client& client) const override
    {
        QStringList types = typeIds(client);
        if (!line.positionalArguments().isEmpty()) {
            types = line.positionalArguments();
            if (!findType(client, types.constFirst()))
                return WrongUsage;
        }

        QJsonArray json;
        QList<QStringList> rows;
        for (const QString& type : std::as_const(types)) {
            const auto rules = client.module().getRules(client.module().getNotifications().value(type));
            for (const ZepaNotificationRule* rule : rules) {
                const QString method = rule->getMethod()->getId();
                rows.append({type, method, assignments(rule->getConfig())});
                json.append(QJsonObject{
                    {u"type"_s, type}, {u"method"_s, method}, {u"settings"_s, jsonValues(rule->getConfig())}});
            }
        }
        sayRows({u"TYPE"_s, u"METHOD"_s, u"SETTINGS"_s}, rows, json, line.isSet(u"json"_s));
        return Success;
    }
};

} // namespace

CommandPointer makeRules()
{
    return std::make_unique<Rules>();
}

} // namespace zepa::cli
