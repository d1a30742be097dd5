// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// The desktop's notification service, from the side of a program that starts, posts and ends within a moment.
namespace zepa::cli {

/// Gives the session bus time, two seconds at most, to say whether there is a notification service; the library posts
/// no pop-up before it knows. Events are handled meanwhile.
void waitForNotificationService();

/// Why there would be no pop-up now; empty when a service is there.
QString whyNoPopup();

/// Waits, three seconds at most, until what was sent to the notification service has arrived there.
void flushPopups();

} // namespace zepa::cli
