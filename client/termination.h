// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa {

/// From now on SIGINT and SIGTERM end the program in order: they count as ClientRequests::quit(), whose receivers are
/// connected by now. A second one ends it at once. Signals that were ignored stay so. Needs the application object.
void quitOnTermination();

/// The very last thing that the program does: it ends by the signal that made it quit, if one did, so that whoever
/// waits for it sees that.
void endBySignal();

} // namespace zepa
