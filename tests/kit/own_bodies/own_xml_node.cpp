// SPDX-License-Identifier: Apache-2.0
// Elements as Qt's stream reader and writer have them, for small files of this test's own.
#include "host/xml_node.h"

#include <QMap>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <utility>

class ZepaXmlNodeData : public QSharedData
{
public:
    QString name;
    QString text;
    QMap<QString, QString> attributes;
    QList<ZepaXmlNode> children;
};

ZepaXmlNode::ZepaXmlNode(const QString& name, const QString& text, ZepaXmlNode* parent) : d(new ZepaXmlNodeData)
{
    d->name = name;
    d->text = text;
    if (parent)
        parent->d->children.append(*this);
}

ZepaXmlNode::ZepaXmlNode(const ZepaXmlNode& other) = default;
ZepaXmlNode::ZepaXmlNode(ZepaXmlNode&& other) noexcept = default;
ZepaXmlNode& ZepaXmlNode::operator=(const ZepaXmlNode& other) = default;
ZepaXmlNode& ZepaXmlNode::operator=(ZepaXmlNode&& other) noexcept = default;
ZepaXmlNode::~ZepaXmlNode() = default;

void ZepaXmlNode::setContent(const QByteArray& xml)
{
    QList<ZepaXmlNode> open;
    ZepaXmlNode root({}, {}, nullptr);
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            ZepaXmlNode node(reader.name().toString(), {}, open.isEmpty() ? nullptr : &open.last());
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute& attribute : attributes)
                node.setAttribute(attribute.name().toString(), attribute.value().toString());
            if (open.isEmpty())
                root = node;
            open.append(node);
        } else if (reader.isEndElement()) {
            open.removeLast();
        } else if (reader.isCharacters() && !open.isEmpty()) {
            open.last().d->text += reader.text();
        }
    }
    if (reader.hasError())
        root = ZepaXmlNode({}, {}, nullptr);
    d->name = root.d->name;
    d->text = root.d->text;
    d->attributes = root.d->attributes;
    d->children = root.d->children;
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
    return d->children;
}

ZepaXmlNode ZepaXmlNode::addChild(const QString& name, const QString& text)
{
    return {name, text, this};
}

void ZepaXmlNode::appendChild(const ZepaXmlNode& node)
{
    d->children.append(node);
}

QString ZepaXmlNode::getAttribute(const QString& name) const
{
    return d->attributes.value(name);
}

void ZepaXmlNode::setAttribute(const QString& name, const QString& value)
{
    d->attributes.insert(name, value);
}

QByteArray ZepaXmlNode::toByteArray(int /*indentation*/) const
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.writeStartDocument();
    // Each element with how many of its children are written.
    QList<std::pair<ZepaXmlNode, qsizetype>> open{{*this, -1}};
    while (!open.isEmpty()) {
        auto& [node, written] = open.last();
        if (written < 0) {
            writer.writeStartElement(node.name());
            for (auto attribute = node.d->attributes.cbegin(); attribute != node.d->attributes.cend(); ++attribute)
                writer.writeAttribute(attribute.key(), attribute.value());
            writer.writeCharacters(node.text());
            written = 0;
        }
        if (written < node.d->children.size()) {
            const ZepaXmlNode child = node.d->children[written++];
            open.append({child, -1});
        } else {
            writer.writeEndElement();
            open.removeLast();
        }
    }
    writer.writeEndDocument();
    return bytes;
}
