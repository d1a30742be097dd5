// SPDX-License-Identifier: Apache-2.0
#include "client/cli/rule_file.h"

#include "client/cli/exit_code.h"
#include "client/cli/output.h"
#include "client/client.h"
#include "client/rules/safe_change.h"

#include <QFileInfo>

namespace zepa::cli {

int changeRules(Client& client, const QString& typeId, const std::function<void()>& edit)
{
    const QFileInfo file(client.ruleBackup().ruleFile(typeId));
    if (file.exists() ? !file.isFile() || !file.isWritable() : !client.settings().isUsable()) {
        complain(QStringLiteral("the rule file %1 cannot be written: nothing was changed; give yourself write "
                                "permission or name another folder with --settings")
                     .arg(onOneLine(file.filePath())));
        return Failure;
    }
    const SafeChange change = changeSafely(client.module(), client.ruleBackup(), typeId, edit);
    const QString problem = problemWith(change, typeId);
    if (!problem.isEmpty())
        complain(problem);
    return change == SafeChange::Stored || change == SafeChange::StoredWithoutCopy ? Success : Failure;
}

} // namespace zepa::cli
