// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/journal/recorder.h"
#include "kit/kit_export.h"

#include <QString>

namespace zepa {

/// Posts one event of the type as if it happened now, so that the user sees and hears what its rules do. Each sample
/// has a title of its own, since a repeat would be dropped. The result tells the user what was called and what kept a
/// method from reaching them; empty for a type that is not registered.
ZEPA_KIT_EXPORT QString postSample(const Recorder& recorder, const QString& typeId);

} // namespace zepa
