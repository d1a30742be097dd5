// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <functional>

namespace zepa {
class Client;
}

namespace zepa::cli {

/// Changes the rules of the type with `edit`, so that they are on the disk. Gives the exit code; what is wrong is said.
int changeRules(Client& client, const QString& typeId, const std::function<void()>& edit);

} // namespace zepa::cli
