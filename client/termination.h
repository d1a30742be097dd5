// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa {

/// From now on SIGINT and SIGTERM end the program in order: they count as ClientRequests::quit(), whose receivers are
/// connected by now. A second one ends it at once. Signals that were ignored stay so. Needs the application object.
void quitOnTermination();

/// Call this last in main(): ends the program by the signal that made it quit, if any, so that its parent process sees
/// the signal.
void endBySignal();

} // namespace zepa
