// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/data.h"
#include "corefoundation/string.h"

#include <QByteArray>
#include <QXmlStreamReader>

namespace {

/// Steps to the next element inside the current one; false at its end or at an error.
bool entersElement(QXmlStreamReader& xml, const QString& name)
{
    return xml.readNextStartElement() && xml.name() == name;
}

/// Reads the one string of the document. The reader holds the error when there is none.
QString readString(QXmlStreamReader& xml)
{
    if (!xml.readNextStartElement())
        return {};
    if (xml.name() == QStringLiteral("plist") && !entersElement(xml, QStringLiteral("string"))) {
        xml.raiseError(QStringLiteral("a plist must hold one string"));
        return {};
    }
    if (xml.name() != QStringLiteral("string")) {
        xml.raiseError(
            QStringLiteral("strings are the only property lists that are read here, not %1").arg(xml.name()));
        return {};
    }
    const QString text = xml.readElementText();
    while (!xml.atEnd())
        xml.readNext();
    return text;
}

} // namespace

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef /*allocator*/, CFDataRef xmlData,
                                                  CFOptionFlags /*mutabilityOption*/, CFStringRef* errorString)
{
    if (errorString != nullptr)
        *errorString = nullptr;
    const std::vector<UInt8>& bytes = cf::as<cf::Data>(xmlData, "CFPropertyListCreateFromXMLData").bytes;
    QXmlStreamReader xml(QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    const QString text = readString(xml);
    if (!xml.hasError())
        return cf::makeString(text.toStdU16String());
    if (errorString != nullptr)
        *errorString = cf::makeString(xml.errorString().toStdU16String());
    return nullptr;
}
