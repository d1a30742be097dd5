// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa::freedesktop {

/// Where the notification service is; its interface has its name.
inline constexpr const char* serviceName = "org.freedesktop.Notifications";
inline constexpr const char* servicePath = "/org/freedesktop/Notifications";

} // namespace zepa::freedesktop
