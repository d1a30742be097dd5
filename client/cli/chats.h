// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"

#include <QList>

/// Chat windows beside the pop-ups: the conversation that a script plays, as the user would see it.
namespace zepa::cli {

/// Opens the chat window of everybody in the script. Needs a display to be of use.
void openChats(const QList<Event>& events);

/// Shows the event in the chat window of its buddy, if that is open: a message, received or sent, as a line, the coming
/// and going of the buddy in the heading.
void showInChat(const Event& event);

} // namespace zepa::cli
