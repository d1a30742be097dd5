// SPDX-License-Identifier: Apache-2.0
#include "kit/values/xml_writer.h"

#include "kit/values/xml_escapes.h"

#include <QList>
#include <QXmlStreamWriter>

#include <algorithm>
#include <utility>

namespace zepa {

namespace {

constexpr qsizetype deepestIndentation = 64;
constexpr int widestIndentation = 64;

class Writer
{
public:
    Writer(QByteArray& xml, int indentation) : m_writer(&xml), m_indentation(std::min(indentation, widestIndentation))
    {}

    void write(const ZepaXmlNodeData& root);

private:
    struct Open
    {
        const ZepaXmlNodeData* node;
        bool breaksLines;
        qsizetype nextChild = 0;
    };

    void start(const ZepaXmlNodeData& node);
    void end();
    void writeText(QStringView text);
    void breakLine(qsizetype level);
    bool breaksLines(const ZepaXmlNodeData& node) const;
    void instruct(const char16_t* target, const QString& data);

    QXmlStreamWriter m_writer;
    int m_indentation;
    QList<Open> m_open;
};

void Writer::write(const ZepaXmlNodeData& root)
{
    m_writer.writeStartDocument();
    start(root);
    while (!m_open.isEmpty()) {
        Open& top = m_open.last();
        if (top.nextChild == top.node->children.size()) {
            end();
            continue;
        }
        const ZepaXmlNodeData& child = *top.node->children.at(top.nextChild++);
        if (child.name.isEmpty())
            continue;
        if (top.breaksLines)
            breakLine(m_open.size());
        start(child);
    }
    m_writer.writeEndDocument();
}

void Writer::start(const ZepaXmlNodeData& node)
{
    const bool plainName = xml::isPlainName(node.name);
    m_writer.writeStartElement(plainName ? node.name : QString::fromUtf16(xml::placeholderTag));

    const auto isPlain = [](const QString& name, const QString& value) {
        return xml::isPlainName(name) && xml::plainLength(value) == value.size();
    };
    for (auto it = node.attributes.cbegin(); it != node.attributes.cend(); ++it) {
        if (isPlain(it.key(), it.value()))
            m_writer.writeAttribute(it.key(), it.value());
    }
    if (!plainName)
        instruct(xml::nameTarget, xml::toUnits(node.name));
    for (auto it = node.attributes.cbegin(); it != node.attributes.cend(); ++it) {
        if (!isPlain(it.key(), it.value()))
            instruct(xml::attributeTarget, xml::toUnits(it.key()) + u'=' + xml::toUnits(it.value()));
    }

    // Blanks between elements are layout to whoever reads them: a text of nothing else must not look like that.
    if (!node.children.isEmpty() && !node.text.isEmpty() && QStringView(node.text).trimmed().isEmpty())
        instruct(xml::textTarget, xml::toUnits(node.text));
    else
        writeText(node.text);
    m_open.append({&node, breaksLines(node)});
}

void Writer::end()
{
    if (m_open.takeLast().breaksLines)
        breakLine(m_open.size());
    m_writer.writeEndElement();
}

void Writer::writeText(QStringView text)
{
    while (!text.isEmpty()) {
        const qsizetype plain = xml::plainLength(text);
        if (plain > 0)
            m_writer.writeCharacters(text.first(plain).toString());
        text = text.sliced(plain);
        const qsizetype unspeakable = xml::unspeakableLength(text);
        if (unspeakable > 0)
            instruct(xml::textTarget, xml::toUnits(text.first(unspeakable)));
        text = text.sliced(unspeakable);
    }
}

void Writer::breakLine(qsizetype level)
{
    const qsizetype width = std::min(level, deepestIndentation) * m_indentation;
    m_writer.writeCharacters(u'\n' + QString(width, u' '));
}

bool Writer::breaksLines(const ZepaXmlNodeData& node) const
{
    return m_indentation >= 0 && node.text.isEmpty() &&
           std::any_of(node.children.cbegin(), node.children.cend(),
                       [](const ZepaXmlNodeData::Pointer& child) { return !child->name.isEmpty(); });
}

void Writer::instruct(const char16_t* target, const QString& data)
{
    m_writer.writeProcessingInstruction(QString::fromUtf16(target), data);
}

} // namespace

QByteArray writeXml(const ZepaXmlNodeData& root, int indentation)
{
    QByteArray xml;
    Writer(xml, indentation).write(root);
    return xml;
}

} // namespace zepa
