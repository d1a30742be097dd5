// SPDX-License-Identifier: Apache-2.0
#include "client/cli/rule_file.h"

#include "client/cli/exit_code.h"
#include "client/cli/job.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/safe_change.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

int changeNow(Client& client, RuleLock& lock, const QString& typeId, const std::function<int()>& edit)
{
    const QFileInfo file(client.ruleBackup().ruleFile(typeId));
    if (file.exists() ? !file.isFile() || !file.isWritable() : !client.settings().isUsable()) {
        printError(u"cannot write the rule file %1; nothing was changed. Check the file "
                   u"permissions or choose another folder with --settings"_s.arg(onOneLine(file.filePath())));
        return Failure;
    }
    int code = Failure;
    const SafeChange change =
        lock.isHeld() || !lock.isPossible()
            ? changeSafely(client.module(), client.ruleBackup(), lock, typeId, [&code, &edit] { code = edit(); })
            : SafeChange::Busy;
    const QString problem = problemWith(change, typeId);
    if (!problem.isEmpty())
        printError(problem);
    return change == SafeChange::Stored || change == SafeChange::StoredWithoutCopy ? code : Failure;
}

} // namespace

void changeRules(Client& client, Job& job, const QString& typeId, const std::function<int()>& edit)
{
    whenLocked(client.ruleBackup().ruleFolder(), &job, [&client, &job, typeId, edit](RuleLock& lock) {
        int code = Failure;
        job.speak([&] { code = changeNow(client, lock, typeId, edit); });
        job.finish(code);
    });
    if (!job.code()) {
        QObject::connect(&job, &Job::hurried, &job, [&job, typeId] {
            job.speak([&typeId] { printError(problemWith(SafeChange::Busy, typeId)); });
            job.finish(Failure);
        });
    }
}

} // namespace zepa::cli
