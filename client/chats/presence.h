// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

#include <optional>

namespace zepa {

/// Whether a buddy can be reached.
enum class Presence { Unavailable, Available, Away };

/// What an event of this type says of the presence of its buddy; nothing for most types.
ZEPA_KIT_EXPORT std::optional<Presence> presenceAfter(const QString& typeId);
/// The presence in the user's language.
ZEPA_KIT_EXPORT QString presenceText(Presence presence);
/// Its picture in the roster theme, relative to the theme's folder.
ZEPA_KIT_EXPORT QString presencePicture(Presence presence);

} // namespace zepa
