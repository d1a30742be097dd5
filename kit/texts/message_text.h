// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

namespace zepa {

/// The longest message that is shown, in UTF-16 units; what goes beyond is replaced by an ellipsis.
inline constexpr qsizetype longestMessage = 8000;
/// The longest name that is shown.
inline constexpr qsizetype longestName = 120;

/// What a stranger wrote, as plain text that a window can show: at most longestMessage units; every kind of line
/// break is a QChar::LineSeparator, and beyond 200 of them a space; what has no meaning in a text (control characters,
/// NUL, halves of characters, non-characters) is U+FFFD; of a pile of combining marks the first ten stay.
/// Takes time for what is shown, not for what was sent.
ZEPA_KIT_EXPORT QString messageText(const QString& sent);

/// The same for a name: one line of at most longestName units, without marks that turn the direction of what follows.
ZEPA_KIT_EXPORT QString nameText(const QString& sent);

/// The text cut to `longest` UTF-16 units, the last of which is an ellipsis then; never in the middle of a character.
ZEPA_KIT_EXPORT QString shortened(const QString& text, qsizetype longest);

/// The direction of the first letter that has one; `otherwise` when there is none.
ZEPA_KIT_EXPORT Qt::LayoutDirection directionOf(const QString& text, Qt::LayoutDirection otherwise);

} // namespace zepa
