// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/values/xml_node_data.h"

#include <QByteArray>

namespace zepa {

/// The root element of the document in `xml`; an element without name, text and children when the document is not
/// well-formed from its first to its last byte. Never null.
///
/// A document with a document type declaration is not read at all: what it declares (entities, default attributes)
/// can grow without bound, and no file of ours has one. Nor is one with more than 256 attributes in one element.
/// Blanks between child elements are layout, not text.
ZepaXmlNodeData::Pointer readXml(const QByteArray& xml);

} // namespace zepa
