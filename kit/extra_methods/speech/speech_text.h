// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace zepa {

/// The longest text that is spoken, in UTF-16 units: half a minute. Whoever wants to know the rest reads it.
inline constexpr qsizetype longestSpeech = 400;

/// A text as it can be said: image markers and control characters left out, blanks joined, and nothing in it that the
/// speaker would take for an instruction. Cut behind a word when it is longer than longestSpeech. May be empty.
QString speakable(const QString& text);

} // namespace zepa
