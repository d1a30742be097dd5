// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa {

/// Makes the folder and what is missing on the way to it, each for its owner alone whatever the umask. What exists
/// keeps its mode. True when the folder is there afterwards.
bool makePrivateFolder(const QString& path);

} // namespace zepa
