// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa {

struct Posting;

/// Shows what happened in the chat window of its buddy, if that is open: a message, received or sent, as a line, the
/// coming and going of the buddy in the heading. Opens nothing and brings nothing to the front.
void showInChat(const Posting& posting);

} // namespace zepa
