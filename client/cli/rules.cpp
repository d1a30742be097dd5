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

namespace zepa::cli {

namespace {

class Rules final : public Command
{
public:
    QString name() const override { return QStringLiteral("rules"); }
    QString arguments() const override { return QStringLiteral("[TYPE] [--json]"); }
    QString summary() const override
    {
        return QStringLiteral("Lists the rules: which methods announce which type, and with which settings.");
    }
    QString example() const override { return QStringLiteral("zepa rules message_received"); }
    QString details() const override
    {
        return QStringLiteral("The rules of a type stand in the order in which they are called: newest first.");
    }
    QList<QCommandLineOption> options() const override
    {
        return {
            {QStringLiteral("json"), QStringLiteral("for programs: an array of objects with type, method, settings")}};
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
                json.append(QJsonObject{{QStringLiteral("type"), type},
                                        {QStringLiteral("method"), method},
                                        {QStringLiteral("settings"), jsonValues(rule->getConfig())}});
            }
        }
        if (line.isSet(QStringLiteral("json")))
            sayJson(json);
        else
            sayTable({QStringLiteral("TYPE"), QStringLiteral("METHOD"), QStringLiteral("SETTINGS")}, rows);
        return Success;
    }
};

} // namespace

CommandPointer makeRules()
{
    return std::make_unique<Rules>();
}

} // namespace zepa::cli
