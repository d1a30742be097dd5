// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/cli/event.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace zepa::cli {

/// A script of events: one JSON object a line, in the order of time. Empty lines are passed over.
///
///   {"at": 1.5, "type": "message_received", "title": "Anna", "text": "Lunch?", "buddy": "Anna"}
///
/// "type" and "title" must be there; "at" is in seconds from the start and is that of the line above when it is not
/// given. A relative "icon" is looked for beside the script.
struct Script
{
    QList<Event> events;
    /// What is wrong, one line each: "FILE:LINE: field "FIELD": PROBLEM; allowed is ...". Nothing is to be played then.
    QStringList problems;
};

/// The latest time that a line may name, in seconds.
inline constexpr int latestTime = 86400;

/// @param content  the script, in UTF-8
/// @param name     the script's name in messages
/// @param folder   where relative pictures are
/// @param types    the notification types that may be posted
Script readScript(const QByteArray& content, const QString& name, const QString& folder, const QStringList& types);

} // namespace zepa::cli
