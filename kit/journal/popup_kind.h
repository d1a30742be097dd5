// SPDX-License-Identifier: Apache-2.0
#pragma once

class ZepaNotification;

namespace zepa {

/// Tells the platform what the pop-ups of a built-in type are about, where the desktop notification standard has a
/// category for it. Does nothing for other types.
void setPopupKind(const ZepaNotification& type);

} // namespace zepa
