// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

QT_BEGIN_NAMESPACE
class QWindow;
QT_END_NAMESPACE

/// Asks once, and not insistently, for the user's attention to this application: one of its windows gets the window
/// manager's attention state (X11), and docks are told through the launcher's signal on the session bus. Both are taken
/// back when the application becomes active. The window is the one that was named below, else the one that was active
/// last, else the first; of those that are visible and have a place in task bars.
///
/// Main thread only. Never waits for the bus. Does nothing while the application is active or without a
/// QGuiApplication; an application without windows, and a desktop without a bus, are fine.
Q_DECL_EXPORT void zepaRequestAttention();

/// Names the window that the next requests are about; null for none in particular. It may go away any time.
Q_DECL_EXPORT void zepaSetAttentionWindow(QWindow* window);
