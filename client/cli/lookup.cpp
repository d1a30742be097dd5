// SPDX-License-Identifier: Apache-2.0
#include "client/cli/lookup.h"

#include "client/cli/output.h"
#include "client/client.h"
#include "core/notification_module.h"

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

template <typename Registry>
QStringList sortedKeys(const Registry& registry)
{
    QStringList ids = registry.keys();
    ids.sort();
    return ids;
}

} // namespace

QStringList typeIds(Client& client)
{
    return sortedKeys(client.module().getNotifications());
}

QStringList methodIds(Client& client)
{
    return sortedKeys(client.module().getMethods());
}

ZepaNotification* findType(Client& client, const QString& id)
{
    ZepaNotification* type = client.module().getNotifications().value(id);
    if (!type)
        printError(
            u"unknown notification type \"%1\"; types are: %2"_s.arg(onOneLine(id), typeIds(client).join(u", "_s)));
    return type;
}

ZepaNotificationMethod* findMethod(Client& client, const QString& id)
{
    ZepaNotificationMethod* method = client.module().getMethods().value(id);
    if (!method)
        printError(
            u"unknown delivery method \"%1\"; methods are: %2"_s.arg(onOneLine(id), methodIds(client).join(u", "_s)));
    return method;
}

} // namespace zepa::cli
