// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/output.h"

#include <QByteArray>

#include <optional>

/// The program's own standard streams, and whether they work.
namespace zepa::cli {

/// To be called before anything else in main(): gives the numbers of streams that are closed to something that can
/// neither be read nor written, so that no other file gets them.
void reserveClosedStreams();

/// Writes and flushes. That standard output cannot be written is said once on standard error.
void writeToStream(Stream stream, const QByteArray& bytes);

/// The exit code of a program that would end with `code`: "done" becomes "could not be done" when a part of what it had
/// to say is lost.
int exitCodeAfterOutput(int code);

/// Standard input to its end, one byte more than `most` at most. Nothing when it cannot be read.
std::optional<QByteArray> readStandardInput(qsizetype most);

} // namespace zepa::cli
