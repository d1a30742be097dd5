// SPDX-License-Identifier: Apache-2.0
#include "host/xml_node.h"

#include "kit/values/xml_node_data.h"
#include "kit/values/xml_reader.h"
#include "kit/values/xml_writer.h"

#include <utility>

using namespace Qt::StringLiterals;

ZepaXmlNode::ZepaXmlNode(const QString& name, const QString& text, ZepaXmlNode* parent) : d(new ZepaXmlNodeData)
{
    d->name = name;
    d->text = text;
    if (parent)
        parent->d->append(d);
}

ZepaXmlNode::ZepaXmlNode(const ZepaXmlNode& other) = default;
ZepaXmlNode::ZepaXmlNode(ZepaXmlNode&& other) noexcept = default;
ZepaXmlNode& ZepaXmlNode::operator=(const ZepaXmlNode& other) = default;
ZepaXmlNode& ZepaXmlNode::operator=(ZepaXmlNode&& other) noexcept = default;
ZepaXmlNode::~ZepaXmlNode() = default;

void ZepaXmlNode::setContent(const QByteArray& xml)
{
    const ZepaXmlNodeData::Pointer root = zepa::readXml(xml);
    // Other handles on this element see the new content: the element stays, what is in it changes.
    d->releaseChildren();
    d->name = std::exchange(root->name, {});
    d->text = std::exchange(root->text, {});
    d->attributes = std::exchange(root->attributes, {});
    d->children = std::exchange(root->children, {});
}

bool ZepaXmlNode::isNull() const
{
    return d->name.isEmpty();
}

QString ZepaXmlNode::name() const
{
    return d->name;
}

QString ZepaXmlNode::text() const
{
    return d->text;
}

bool ZepaXmlNode::hasChildNodes() const
{
    return !d->children.isEmpty();
}

QList<ZepaXmlNode> ZepaXmlNode::getChildNodes() const
{
    QList<ZepaXmlNode> nodes;
    nodes.reserve(d->children.size());
    for (ZepaXmlNodeData::Pointer child : std::as_const(d->children)) {
        ZepaXmlNode node(*this);
        node.d.swap(child);
        nodes.append(node);
    }
    return nodes;
}

ZepaXmlNode ZepaXmlNode::addChild(const QString& name, const QString& text)
{
    return {name, text, this};
}

void ZepaXmlNode::appendChild(const ZepaXmlNode& node)
{
    if (!node.isNull() && !node.d->holds(d.constData()))
        d->append(node.d);
}

QString ZepaXmlNode::getAttribute(const QString& name) const
{
    return d->attributes.value(name);
}

void ZepaXmlNode::setAttribute(const QString& name, const QString& value)
{
    if (!name.isEmpty())
        d->attributes.insert(name, value.isNull() ? u""_s : value);
}

QByteArray ZepaXmlNode::toByteArray(int indentation) const
{
    return isNull() ? QByteArray() : zepa::writeXml(*d, indentation);
}
