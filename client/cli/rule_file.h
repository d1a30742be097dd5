// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <functional>

namespace zepa {
class Client;
}

namespace zepa::cli {

class Job;

/// Changes the rules of the type with `edit`, so that they are on the disk, and finishes the job. Waits for other
/// programs that work on the rules, without blocking. `edit` finds the rules as they are then; it gives the exit code
/// and says what is wrong itself, as this function does for the files.
void changeRules(Client& client, Job& job, const QString& typeId, const std::function<int()>& edit);

} // namespace zepa::cli
