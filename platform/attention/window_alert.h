// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace attention {

/// Sets the window manager's attention state on the application's visible windows that a task bar lists. Does nothing
/// where Qt's platform has no such state (Wayland before Qt 6.5).
void alertWindows();

/// Takes that state back from all windows.
void clearWindowAlerts();

} // namespace attention
