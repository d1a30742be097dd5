// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa {

/// Puts the process's environment in order, for itself alone (child_environment.h); to be called before there is a
/// QApplication. Asks the session bus whether it answers, which takes two seconds where it keeps silent; from then on
/// Qt does without one. False when it does not answer.
///
/// @param needsDisplay  whether the program is to show anything: without need, none is opened
bool prepareEnvironment(bool needsDisplay);

/// Whether there is a display on which something can be shown. Needs a QApplication.
bool hasDisplay();

} // namespace zepa
