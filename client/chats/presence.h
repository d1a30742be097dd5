// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

namespace zepa {

/// Whether a buddy can be reached.
enum class Presence { Unavailable, Available, Away };

/// The presence in the user's language.
ZEPA_KIT_EXPORT QString presenceText(Presence presence);
/// Its picture in the roster theme, relative to the theme's folder.
ZEPA_KIT_EXPORT QString presencePicture(Presence presence);

} // namespace zepa
