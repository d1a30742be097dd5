// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client_export.h"
#include "host/field.h"

#include <QString>

/// Values of fields as people and files write them.
namespace zepa {

/// Whether `field` may hold the value that `text` spells: "true" or "false" for a check box, a whole number within
/// the bounds for a spin box, one of the item identifiers for a combo box, anything for a sound file and a text. A
/// field without type allows nothing.
ZEPA_CLIENT_EXPORT bool fieldAllows(const ZepaField& field, const QString& text);

/// What fieldAllows() lets pass, in words for an error message: "a whole number from 0 to 300".
ZEPA_CLIENT_EXPORT QString allowedValues(const ZepaField& field);

} // namespace zepa
