// SPDX-License-Identifier: Apache-2.0
#include "attention/window_alert.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMetaObject>
#include <QPoint>
#include <QTimer>

#include <algorithm>

namespace attention {

namespace {

/// Qt does not flush an alert: an idle program would send it with the next X event only. A question that the display
/// answers flushes. QGuiApplication::sync() would too, but handles events, and so anything, in the middle of a posting.
void flushSoon()
{
    QTimer::singleShot(0, qGuiApp, [] { [[maybe_unused]] const QPoint answer = QCursor::pos(); });
}

} // namespace

bool canAsk(const QWindow* window)
{
    if (window == nullptr || !window->isVisible())
        return false;
    const bool listedType = window->type() == Qt::Window || window->type() == Qt::Dialog;
    return listedType && !window->flags().testFlag(Qt::BypassWindowManagerHint);
}

QWindow* askingWindow(QWindow* named, QWindow* lastActive)
{
    QWindowList windows = QGuiApplication::topLevelWindows();
    windows.prepend(lastActive);
    windows.prepend(named);
    const auto found = std::find_if(windows.cbegin(), windows.cend(), canAsk);
    return found == windows.cend() ? nullptr : *found;
}

void WindowAlert::set(QWindow* window)
{
    if (m_window != window)
        clear();
    m_window = window;
    if (window == nullptr)
        return;
    window->alert(0);
    flushSoon();
}

void WindowAlert::clear()
{
    if (!m_window)
        return;
    // Qt itself clears the alert of the window that got the focus, but not when that was another one, and has no public
    // function for it. The slot is the one that ends an alert after its time. It does nothing without an alert.
    constexpr const char* clearSlot = "_q_clearAlert";
    if (m_window->metaObject()->indexOfMethod(QByteArray(clearSlot) + "()") >= 0)
        QMetaObject::invokeMethod(m_window, clearSlot, Qt::DirectConnection);
    m_window.clear();
    flushSoon();
}

} // namespace attention
