// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QList>

namespace zepa::bus {

/// The single addresses in `list`, in their order, as sd-bus connects to them without waiting: without a guid, which is
/// another one when the bus was started again, and with the run-time folder's socket for "autolaunch:" and
/// "unix:runtime=yes". Left out: kinds that sd-bus does not have, and hosts that somebody would have to be asked for.
QList<QByteArray> splitAddresses(const QByteArray& list);

/// From now on this list counts in place of what the environment says.
void setConfiguredAddress(const QByteArray& list);
/// What the environment says, or else the socket in the user's run-time folder.
QList<QByteArray> configuredAddresses();

/// The path in a "unix:" address, or NUL and the abstract name; empty for any other address and for a broken one.
QByteArray socketNameOf(const QByteArray& address);

/// The program and its arguments in a "unixexec:" address; empty for any other address and for a broken one.
QList<QByteArray> programOf(const QByteArray& address);

} // namespace zepa::bus
