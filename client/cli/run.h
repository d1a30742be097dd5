// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zepa {
class Client;
}

namespace zepa::cli {

class CommandLine;

/// The content of the file that the command works on; empty when it works on none. Nothing, after a message, when the
/// file cannot be read.
std::optional<QByteArray> readInput(const CommandLine& line);

/// Carries out the command in this program, to the end, and gives its exit code. Handles events meanwhile.
int runHere(const CommandLine& line, const QByteArray& input, Client& client);

} // namespace zepa::cli
