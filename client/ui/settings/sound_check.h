// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QObject;

namespace zepa {

/// Reads the file in a thread of its own, since a disk can be slow, and calls `done` from the event loop with whether
/// the audio service can play it. Not called any more when `context` is gone.
void checkSound(const QString& path, QObject* context, std::function<void(bool plays)> done);

/// Patterns for the names of sound files: "*.wav".
QStringList soundNamePatterns();

} // namespace zepa
