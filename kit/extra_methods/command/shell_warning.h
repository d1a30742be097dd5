// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QList>
#include <QString>

namespace zepa {

/// Why a rule of the command method is dangerous: it hands texts of the event to a shell as part of a script, such as
/// `sh -c "echo %m"`, so that somebody's message could run commands. Names the safe way, for the user. Empty for
/// every other rule and method.
QString shellWarning(const QString& methodId, const QList<ZepaField>& settings);

} // namespace zepa
