// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"
#include "kit/kit_export.h"

#include <QList>

namespace zepa {

/// The settings that hold for the whole client, with their initial values: what a settings window shows and
/// `zepa setting` reads and writes. A theme may be any of those that are found on this machine right now.
ZEPA_KIT_EXPORT QList<ZepaField> globalSettings();

} // namespace zepa
