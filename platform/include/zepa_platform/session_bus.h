// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Whether the session bus answers. Waits for that, `milliseconds` at most; needs no application object.
///
/// Nothing of this library needs it. It is for programs that use the bus in other ways: QtDBus, and what of Qt stands
/// on it, waits for ever for a bus that accepts and says nothing. Such a program asks at its start, before it makes its
/// application object, and does without a bus when this says no.
Q_DECL_EXPORT bool zepaSessionBusAnswers(int milliseconds);
