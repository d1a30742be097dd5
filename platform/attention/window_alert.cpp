// SPDX-License-Identifier: Apache-2.0
#include "attention/window_alert.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMetaObject>
#include <QPoint>
#include <QTimer>
#include <QWindow>

namespace attention {

namespace {

bool isListedInTaskBar(const QWindow& window)
{
    const bool listedType = window.type() == Qt::Window || window.type() == Qt::Dialog;
    return listedType && window.isVisible() && !window.flags().testFlag(Qt::BypassWindowManagerHint);
}

/// Qt does not flush an alert: an idle program would send it with the next X event only. A question that the display
/// answers flushes. QGuiApplication::sync() would too, but handles events, and so anything, in the middle of a posting.
void flushSoon()
{
    QTimer::singleShot(0, qGuiApp, [] { [[maybe_unused]] const QPoint answer = QCursor::pos(); });
}

} // namespace

void alertWindows()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
        if (isListedInTaskBar(*window))
            window->alert(0);
    }
    flushSoon();
}

void clearWindowAlerts()
{
    // Qt itself clears the alert of the window that got the focus, but not those of its siblings, and has no public
    // function for it. The slot is the one that ends an alert after its time. It does nothing without an alert.
    constexpr const char* clearSlot = "_q_clearAlert";
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
        if (window->metaObject()->indexOfMethod(QByteArray(clearSlot) + "()") >= 0)
            QMetaObject::invokeMethod(window, clearSlot, Qt::DirectConnection);
    }
    flushSoon();
}

} // namespace attention
