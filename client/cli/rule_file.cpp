// SPDX-License-Identifier: Apache-2.0
#include "client/cli/rule_file.h"

#include "client/cli/output.h"
#include "client/client.h"

#include <QFileInfo>

namespace zepa::cli {

bool canWriteRules(Client& client, const QString& typeId)
{
    const QFileInfo file(client.settings().getSettingsDir() + QStringLiteral("notifications/") + typeId);
    if (file.exists() ? file.isFile() && file.isWritable() : client.settings().isUsable())
        return true;
    complain(QStringLiteral("the rule file %1 cannot be written: nothing was changed; give yourself write permission "
                            "or name another folder with --settings")
                 .arg(onOneLine(file.filePath())));
    return false;
}

} // namespace zepa::cli
