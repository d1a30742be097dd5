// SPDX-License-Identifier: Apache-2.0
#pragma once

// Who speaks over a scripted bus.
inline constexpr const char* busItself = "org.freedesktop.DBus";
inline constexpr const char* serviceOwner = ":1.5";
inline constexpr const char* stranger = ":1.6";
