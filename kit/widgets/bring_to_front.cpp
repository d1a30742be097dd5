// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/bring_to_front.h"

#include <QWidget>

namespace zepa {

void bringToFront(QWidget& window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace zepa
