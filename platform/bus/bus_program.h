// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QList>

namespace zepa::bus {

/// Starts a program whose standard input and output are a bus. `program` is its file and then its argument list,
/// argument 0 included. A socket that the caller closes, which ends a well-behaved program; -1 on failure. A file that
/// cannot be run is seen as a socket at its end.
int startBusProgram(const QList<QByteArray>& program);

} // namespace zepa::bus
