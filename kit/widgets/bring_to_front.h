// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

class QWidget;

namespace zepa {

/// Shows the window, not minimized, in front of the others, with the keyboard, as far as the desktop allows.
ZEPA_KIT_EXPORT void bringToFront(QWidget& window);

} // namespace zepa
