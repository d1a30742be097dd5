// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/job.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/rule_file.h"
#include "client/client.h"
#include "core/notification_module.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

class RuleRemove final : public Command
{
public:
    QString name() const override { return u"rule remove"_s; }
    QString arguments() const override { return u"TYPE METHOD"_s; }
    QString summary() const override
    {
        return u"Removes the rule for a type and a method, so that the type no longer uses the method."_s;
    }
    QString example() const override { return u"zepa rule remove message_received zepa_sound_notification_method"_s; }
    QString details() const override { return u"If there are several, the newest is removed."_s; }
    qsizetype fewestArguments() const override { return 2; }
    qsizetype mostArguments() const override { return 2; }

    bool changesSettings() const override { return true; }

    void start(const QCommandLineParser& line, Client& client, Job& job) const override
    {
        const QString type = line.positionalArguments().at(0);
        const QString method = line.positionalArguments().at(1);
        if (!findType(client, type) || !findMethod(client, method))
            return job.finish(WrongUsage);
        changeRules(client, job, type, [&client, type, method] {
            if (!client.module().getNotificationRule(type, method)) {
                printError(u"%1 has no rule for %2; \"zepa rules %1\" lists its rules"_s.arg(type, method));
                return Failure;
            }
            client.module().removeNotificationRule(type, method);
            return Success;
        });
    }
};

} // namespace

CommandPointer makeRuleRemove()
{
    return std::make_unique<RuleRemove>();
}

} // namespace zepa::cli
