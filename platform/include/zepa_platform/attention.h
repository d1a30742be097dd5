// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

/// Asks once, and not insistently, for the user's attention to this application: its visible windows get the window
/// manager's attention state (X11), and docks are told through the launcher's signal on the session bus. Both are taken
/// back when the application becomes active.
///
/// Main thread only. Never waits for the bus. Does nothing while the application is active or without a
/// QGuiApplication; an application without windows, and a desktop without a bus, are fine.
Q_DECL_EXPORT void zepaRequestAttention();
