// SPDX-License-Identifier: Apache-2.0
#pragma once

class ZepaNotificationModule;

namespace zepa {

/// Tells the platform what the pop-ups of the built-in types are about, where the desktop notification standard has a
/// category for it. To be called after the module's init(): pop-ups are known by the types' display names.
void setPopupKinds(const ZepaNotificationModule& module);

} // namespace zepa
