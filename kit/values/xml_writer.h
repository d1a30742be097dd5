// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/values/xml_node_data.h"

#include <QByteArray>

namespace zepa {

/// The document whose root is `root`, in UTF-8 with a declaration. Elements without a name are left out with all that
/// is in them. `indentation` blanks stand before each child per level, in elements that have no text; below 0 nothing
/// is added. Blanks stop growing at 64 levels: in a very deep tree they would outweigh everything else.
QByteArray writeXml(const ZepaXmlNodeData& root, int indentation);

} // namespace zepa
