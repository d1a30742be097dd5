// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa {
class Client;
}

namespace zepa::cli {

/// Whether the rule file of that type can be written; if not, after a message that names the file. The library passes
/// over files that it cannot write, so a command that changes rules asks first.
bool canWriteRules(Client& client, const QString& typeId);

} // namespace zepa::cli
