// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QByteArray>
#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QString>

class ZepaXmlNodeData;

/// A handle on one element of an XML tree: a name, a text, attributes, child elements in document order.
///
/// Copies of a handle mean the same element. An element lives as long as a handle on it or on one of its ancestors.
/// Nothing here may recurse along the depth of a tree: files from disk can be a million levels deep.
class ZEPA_HOST_EXPORT ZepaXmlNode
{
public:
    /// A new element, attached behind the last child of `parent` unless that is null (the parent is not kept).
    /// With an empty name the node is null until setContent() gives it one.
    ZepaXmlNode(const QString& name, const QString& text, ZepaXmlNode* parent);
    ZepaXmlNode(const ZepaXmlNode& other);
    ZepaXmlNode(ZepaXmlNode&& other) noexcept;
    ZepaXmlNode& operator=(const ZepaXmlNode& other);
    ZepaXmlNode& operator=(ZepaXmlNode&& other) noexcept;
    ~ZepaXmlNode();

    /// Makes this node the root element of the document in `xml`. Content that is empty or not well-formed, also in
    /// its last byte, leaves a null node without children. Time and memory are linear in the size of `xml`; entities
    /// that the document declares itself are not expanded without bound.
    void setContent(const QByteArray& xml);
    /// True for a node without a name: never filled, or filled with something that could not be read.
    bool isNull() const;

    QString name() const;
    /// The text directly inside the element, without that of its children.
    QString text() const;
    bool hasChildNodes() const;
    /// The child elements in document order.
    QList<ZepaXmlNode> getChildNodes() const;
    /// Makes a child element behind the last one and returns it.
    ZepaXmlNode addChild(const QString& name, const QString& text);
    /// Attaches `node` behind the last child. A node that stands elsewhere already is shared from then on. A null
    /// node, or one that holds this element itself, is not attached.
    void appendChild(const ZepaXmlNode& node);

    /// The value of an attribute; null when there is none of that name.
    QString getAttribute(const QString& name) const;
    void setAttribute(const QString& name, const QString& value);

    /// The whole document in UTF-8 with an XML declaration, this element as its root; empty for a null node.
    /// `indentation` is the width of one level in blanks; -1 adds neither blanks nor line breaks.
    /// setContent() reads what this wrote back to an equal tree, whatever characters the texts hold.
    QByteArray toByteArray(int indentation) const;

private:
    QExplicitlySharedDataPointer<ZepaXmlNodeData> d;
};
