// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/data.h"
#include "corefoundation/string.h"

#include <QByteArray>
#include <QXmlStreamReader>

namespace {

/// Reads the one string of the document; the reader holds the error when there is none.
QString readString(QXmlStreamReader& xml)
{
    xml.readNextStartElement();
    const bool isWrapped = xml.name() == QStringLiteral("plist");
    if (isWrapped && !xml.readNextStartElement()) {
        xml.raiseError(QStringLiteral("an empty property list"));
        return {};
    }
    if (!xml.hasError() && xml.name() != QStringLiteral("string"))
        xml.raiseError(QStringLiteral("only strings are read here, not \"%1\"").arg(xml.name()));
    QString text = xml.readElementText();
    if (isWrapped && xml.readNextStartElement())
        xml.raiseError(QStringLiteral("a property list holds one object, and \"%1\" is a second one").arg(xml.name()));
    // What follows the document is read too, for its errors.
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
        return cf::createString(text.toStdU16String());
    if (errorString != nullptr)
        *errorString = cf::createString(xml.errorString().toStdU16String());
    return nullptr;
}
