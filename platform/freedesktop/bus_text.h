// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa::freedesktop {

/// Longest texts that go to the bus, in UTF-16 units, the ellipsis of a cut text included. Nobody reads more in a
/// pop-up, and a bus ends the connection that sends it a message above its limit.
inline constexpr qsizetype summaryLimit = 1000;
inline constexpr qsizetype bodyLimit = 10000;

enum class Markup {
    None,   ///< the text is shown as it is
    Escaped ///< the reader understands markup: &, < and > become entities
};

/// A text that a bus accepts and a pop-up can show, whatever came in; a null text gives an empty one.
///
/// Line feeds and tabs stay, a carriage return becomes a line feed (together with the one behind it). NUL, the other
/// control characters, lone surrogates and noncharacters become U+FFFD; characters that set the direction of the text
/// behind them are left out. A result longer than `limit` UTF-16 units
/// (entities counted as written) is cut and ends with an ellipsis; neither a surrogate pair nor an entity is split.
/// Reads no further than the cut, so the length of a text that is too long costs nothing.
QString busText(const QString& text, qsizetype limit, Markup markup = Markup::None);

} // namespace zepa::freedesktop
