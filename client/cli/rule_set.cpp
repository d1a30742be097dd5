// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/rule_file.h"
#include "client/client.h"
#include "client/methods/command/shell_warning.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"

#include <QCommandLineParser>

#include <limits>

namespace zepa::cli {

namespace {

/// What the rule has now; for a rule that is yet to be made, what it begins with: the method's own default for the
/// type, or its fields where it has none.
QList<ZepaField> settingsToStartFrom(Client& client, const QString& type, const ZepaNotificationMethod& method)
{
    if (const ZepaNotificationRule* rule = client.module().getNotificationRule(type, method.getId()))
        return rule->getConfig();
    const QList<ZepaField> defaults = method.getDefaultNotificationConfig(type);
    const bool hasNoDefault = defaults.size() == 1 && defaults.constFirst().getType() == ZepaField::NoType;
    return hasNoDefault || defaults.isEmpty() ? method.fields : defaults;
}

class RuleSet final : public Command
{
public:
    QString name() const override { return QStringLiteral("rule set"); }
    QString arguments() const override { return QStringLiteral("TYPE METHOD [FIELD=VALUE...]"); }
    QString summary() const override
    {
        return QStringLiteral("Changes the rule for a type and a method, or adds it when there is none.");
    }
    QString example() const override
    {
        return QStringLiteral("zepa rule set error_notify zepa_hint_notification sticky=true");
    }
    QString details() const override
    {
        return QStringLiteral(
            "Fields that are not named keep their values. zepa methods shows which fields a method has.");
    }
    qsizetype fewestArguments() const override { return 2; }
    qsizetype mostArguments() const override { return std::numeric_limits<qsizetype>::max(); }

    int run(const QCommandLineParser& line, Client& client) const override
    {
        const QStringList arguments = line.positionalArguments();
        const QString& type = arguments[0];
        if (!findType(client, type))
            return WrongUsage;
        const ZepaNotificationMethod* method = findMethod(client, arguments[1]);
        if (!method)
            return WrongUsage;

        QList<ZepaField> fields = settingsToStartFrom(client, type, *method);
        for (const QString& assignment : arguments.mid(2)) {
            const QString problem = assign(fields, assignment);
            if (!problem.isEmpty()) {
                complain(problem);
                return WrongUsage;
            }
        }
        const QString warning = shellWarning(method->getId(), fields);
        if (!warning.isEmpty())
            complain(warning);
        return changeRules(client, type,
                           [&] { client.module().updateNotificationRule(type, method->getId(), fields); });
    }
};

} // namespace

CommandPointer makeRuleSet()
{
    return std::make_unique<RuleSet>();
}

} // namespace zepa::cli
