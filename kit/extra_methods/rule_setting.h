// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QList>
#include <QString>

namespace zepa {

/// The rule's setting of that identifier; a field without type when there is none. A method's settings come in no
/// particular order.
ZepaField ruleSetting(const QList<ZepaField>& config, const QString& id);

} // namespace zepa
