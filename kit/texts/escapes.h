// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QChar>
#include <QString>

namespace zepa {

/// Whether the character does something else than to stand in a line: terminals take some of these for commands; others
/// hide or reorder what stands around them, or end the line.
ZEPA_KIT_EXPORT bool isControlling(QChar character);
/// The character as a visible escape: "\n", "\t", or such as "\u001b".
ZEPA_KIT_EXPORT QString escapeOf(QChar character);

} // namespace zepa
