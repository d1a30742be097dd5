// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/field_text.h"
#include "client/cli/job.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/rule_file.h"
#include "client/client.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/extra_methods/command/shell_warning.h"
#include "kit/rules/rule_state.h"

#include <QCommandLineParser>

#include <limits>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

/// What the rule has now, or what a new one begins with.
QList<ZepaField> settingsToStartFrom(Client& client, const QString& type, const QString& method)
{
    if (const ZepaNotificationRule* rule = client.module().getNotificationRule(type, method))
        return rule->getConfig();
    return initialFields(client.module(), type, method);
}

class RuleSet final : public Command
{
public:
    QString name() const override { return u"rule set"_s; }
    QString arguments() const override { return u"TYPE METHOD [FIELD=VALUE...]"_s; }
    QString summary() const override { return u"Changes the rule for a type and a method, or adds one."_s; }
    QString example() const override { return u"zepa rule set error_notify zepa_hint_notification sticky=true"_s; }
    QString details() const override
    {
        return u"Fields not given keep their values. \"zepa methods\" lists the fields of each method."_s;
    }
    qsizetype fewestArguments() const override { return 2; }
    qsizetype mostArguments() const override { return std::numeric_limits<qsizetype>::max(); }

    bool changesSettings() const override { return true; }

    void start(const QCommandLineParser& line, Client& client, Job& job) const override
    {
        const QStringList arguments = line.positionalArguments();
        const QString& type = arguments[0];
        if (!findType(client, type))
            return job.finish(WrongUsage);
        const ZepaNotificationMethod* method = findMethod(client, arguments[1]);
        if (!method)
            return job.finish(WrongUsage);

        const auto fieldsWith = [&client, type, method, assignments = arguments.mid(2)](QString& problem) {
            QList<ZepaField> fields = settingsToStartFrom(client, type, method->getId());
            for (const QString& assignment : assignments) {
                problem = assign(fields, assignment);
                if (!problem.isEmpty())
                    break;
            }
            return fields;
        };
        QString problem;
        const QList<ZepaField> named = fieldsWith(problem);
        if (!problem.isEmpty()) {
            printError(problem);
            return job.finish(WrongUsage);
        }
        const QString warning = shellWarning(method->getId(), named);
        if (!warning.isEmpty())
            printError(warning);
        // Once more when it is our turn: somebody else may have changed a field that is not named.
        changeRules(client, job, type, [&client, type, method, fieldsWith] {
            QString none;
            QList<ZepaField> fields = fieldsWith(none);
            updateRule(client.module(), type, method->getId(), fields);
            return Success;
        });
    }
};

} // namespace

CommandPointer makeRuleSet()
{
    return std::make_unique<RuleSet>();
}

} // namespace zepa::cli
