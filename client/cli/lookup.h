// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

class ZepaNotification;
class ZepaNotificationMethod;

namespace zepa {
class Client;
}

/// What the user names, found in the module's registries.
namespace zepa::cli {

/// The identifiers of all notification types and of all methods, sorted.
QStringList typeIds(Client& client);
QStringList methodIds(Client& client);

/// The type or the method of that identifier. When there is none: null, after a message that names those there are.
ZepaNotification* findType(Client& client, const QString& id);
ZepaNotificationMethod* findMethod(Client& client, const QString& id);

} // namespace zepa::cli
