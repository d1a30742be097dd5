// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

/// What was sent to the stand-in of the Objective-C runtime.
struct RecordingRuntime
{
    /// "receiver message", with the argument behind it where there is one; receivers are classes, "pool" and "app".
    static std::vector<std::string> messages;
    /// The message that throws a std::runtime_error, after it was recorded; none when empty.
    static std::string throwingMessage;
};
