// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QWindow>

namespace attention {

/// Whether the window, which may be null, is visible and one that a task bar lists.
bool canAsk(const QWindow* window);

/// The window that asks for the whole application, since some desktops make a notification of each one that does:
/// `named`, else `lastActive`, else the first; of those that can. Null when there is none.
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
