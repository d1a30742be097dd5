// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The desktop's notification service, from the side of a program that starts, posts and ends within a moment.
namespace zepa {

/// Gives the session bus time, six seconds at most, to say whether there is a notification service. Until then one
/// counts as there, and a pop-up could go nowhere. Events are handled meanwhile.
void waitForNotificationService();

/// Waits until the pop-ups that were posted are with the notification service: a moment, and six seconds at most
/// where it does not answer. Events are handled meanwhile.
void flushPopups();

} // namespace zepa
