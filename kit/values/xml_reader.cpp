// SPDX-License-Identifier: Apache-2.0
#include "kit/values/xml_reader.h"

#include "kit/values/xml_escapes.h"

#include <QByteArrayView>
#include <QList>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// The stream reader compares each attribute of an element with all earlier ones.
constexpr int mostAttributes = 256;

/// Where the tag that starts at `at` ends; -1 when it has too many attributes or no end.
qsizetype endOfTag(QByteArrayView xml, qsizetype at)
{
    int attributes = 0;
    for (; at < xml.size(); ++at) {
        const char c = xml[at];
        if (c == '>')
            return at + 1;
        if (c != '"' && c != '\'')
            continue;
        at = xml.indexOf(c, at + 1);
        if (at < 0 || ++attributes > mostAttributes)
            return -1;
    }
    return -1;
}

/// Whether the stream reader gets through `xml` in linear time and memory. Markup is all ASCII, so bytes will do for
/// every encoding that holds ASCII.
bool isHarmless(QByteArrayView xml)
{
    const auto behind = [xml](QByteArrayView end, qsizetype from) {
        const qsizetype at = xml.indexOf(end, from);
        return at < 0 ? -1 : at + end.size();
    };
    for (qsizetype at = xml.indexOf('<'); at >= 0; at = xml.indexOf('<', at)) {
        const QByteArrayView rest = xml.sliced(at);
        if (rest.startsWith("<!--"))
            at = behind("-->", at + 4);
        else if (rest.startsWith("<![CDATA["))
            at = behind("]]>", at);
        else if (rest.startsWith("<?"))
            at = behind("?>", at);
        else if (rest.startsWith("<!"))
            return false;
        else
            at = endOfTag(xml, at);
        if (at < 0)
            return false;
    }
    return true;
}

class Reader
{
public:
    explicit Reader(QXmlStreamReader& xml) : m_xml(xml) {}

    ZepaXmlNodeData::Pointer read();

private:
    struct Open
    {
        ZepaXmlNodeData::Pointer node;
        bool textIsExact = false;
    };

    void start();
    void end();
    void obey(QStringView target, QStringView data);

    QXmlStreamReader& m_xml;
    ZepaXmlNodeData::Pointer m_root;
    QList<Open> m_open;
};

ZepaXmlNodeData::Pointer Reader::read()
{
    while (!m_xml.atEnd()) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            start();
            break;
        case QXmlStreamReader::EndElement:
            end();
            break;
        case QXmlStreamReader::Characters:
            if (!m_open.isEmpty())
                m_open.last().node->text += m_xml.text();
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (!m_open.isEmpty())
                obey(m_xml.processingInstructionTarget(), m_xml.processingInstructionData());
            break;
        default:
            break;
        }
    }
    return m_xml.hasError() ? ZepaXmlNodeData::Pointer() : m_root;
}

void Reader::start()
{
    const ZepaXmlNodeData::Pointer node(new ZepaXmlNodeData);
    node->name = m_xml.qualifiedName().toString();
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute& attribute : attributes)
        node->attributes.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    if (m_open.isEmpty())
        m_root = node;
    else
        m_open.last().node->append(node);
    m_open.append(Open{node});
}

void Reader::end()
{
    const Open done = m_open.takeLast();
    if (!done.textIsExact && !done.node->children.isEmpty() && QStringView(done.node->text).trimmed().isEmpty())
        done.node->text.clear();
}

void Reader::obey(QStringView target, QStringView data)
{
    Open& top = m_open.last();
    if (target == QStringView(xml::textTarget)) {
        if (const auto text = xml::fromUnits(data)) {
            top.node->text += *text;
            top.textIsExact = true;
        }
    } else if (target == QStringView(xml::nameTarget)) {
        const auto name = xml::fromUnits(data);
        if (name && !name->isEmpty())
            top.node->name = *name;
    } else if (target == QStringView(xml::attributeTarget)) {
        const qsizetype equals = data.indexOf(u'=');
        if (equals <= 0)
            return;
        const auto name = xml::fromUnits(data.first(equals));
        const auto value = xml::fromUnits(data.sliced(equals + 1));
        if (name && value)
            top.node->attributes.insert(*name, value->isNull() ? u""_s : *value);
    }
}

} // namespace

ZepaXmlNodeData::Pointer readXml(const QByteArray& xml)
{
    QXmlStreamReader reader;
    // Names are taken as they are written: a prefix that nobody declared is no fault.
    reader.setNamespaceProcessing(false);

    const auto encoding = QStringConverter::encodingForData(xml, u'<');
    if (encoding && *encoding != QStringConverter::Utf8) {
        // Two and four bytes a character: bring it to one that holds ASCII first.
        QStringDecoder decode(*encoding);
        const QString text = decode(xml);
        if (!decode.hasError() && isHarmless(text.toUtf8()))
            reader.addData(text);
    } else if (isHarmless(xml)) {
        reader.addData(xml);
    }

    const ZepaXmlNodeData::Pointer root = Reader(reader).read();
    return root ? root : ZepaXmlNodeData::Pointer(new ZepaXmlNodeData);
}

} // namespace zepa
