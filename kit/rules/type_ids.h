// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

namespace zepa {

/// The identifiers of the notification types that every client has, which are the names of their rule files. Known
/// before the module is made, since rule files are mended before it reads them.
QStringList builtInTypes();

} // namespace zepa
