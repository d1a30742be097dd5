// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWindow>

namespace attention {

/// The window that asks for the whole application, since some desktops make a notification of each one that does:
/// `named` or else `lastActive` if it is one that a task bar lists and is visible (both may be null), else the first
/// such window. Null when there is none.
QWindow* askingWindow(QWindow* named, QWindow* lastActive);

/// The window manager's attention state, on one window at a time. Does nothing where Qt's platform has no such state
/// (Wayland before Qt 6.5).
class WindowAlert
{
public:
    /// Sets it on `window`, which may be null, and takes it back from another one that has it.
    void set(QWindow* window);
    void clear();

private:
    QPointer<QWindow> m_window;
};

} // namespace attention
