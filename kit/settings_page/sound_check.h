// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>
#include <QStringList>

#include <functional>

class QObject;

namespace zepa {

/// Says whether the client can play a sound file. Called in threads of a pool.
using SoundProbe = std::function<bool(const QString& path)>;
/// Sets what checkSound() asks. Until then a file that is there counts as playable. Before the first page is made.
ZEPA_KIT_EXPORT void setSoundProbe(SoundProbe probe);

/// Asks the probe in a thread of its own, since a disk can be slow, and calls `done` from the event loop with its
/// answer. Not called any more when `context` is gone.
void checkSound(const QString& path, QObject* context, std::function<void(bool plays)> done);

/// Patterns for the names of sound files: "*.wav".
QStringList soundNamePatterns();

} // namespace zepa
