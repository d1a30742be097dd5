// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/data.h"
#include "corefoundation/string.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

/// Reads the one string of the document; the reader holds the error when there is none.
QString readString(QXmlStreamReader& xml)
{
    xml.readNextStartElement();
    const bool isWrapped = xml.name() == u"plist"_s;
    if (isWrapped && !xml.readNextStartElement()) {
        xml.raiseError(u"an empty property list"_s);
        return {};
    }
    if (!xml.hasError() && xml.name() != u"string"_s)
        xml.raiseError(u"only strings are read here, not \"%1\""_s.arg(xml.name()));
    QString text = xml.readElementText();
    if (isWrapped && xml.readNextStartElement())
        xml.raiseError(u"a property list holds one object, and \"%1\" is a second one"_s.arg(xml.name()));
    // What follows the document is read too, for its errors.
    while (!xml.atEnd())
        xml.readNext();
    return text;
}

/// What stands in a document that is one string of plain ASCII and nothing else: no markup, no entities, no line ends.
/// An XML reader would say the same of it, and takes longer than all the rest of a pop-up. Nothing for other documents.
std::optional<std::string_view> plainString(std::string_view document)
{
    constexpr std::string_view opening = "<string>";
    constexpr std::string_view closing = "</string>";
    if (document.size() < opening.size() + closing.size() || document.substr(0, opening.size()) != opening ||
        document.substr(document.size() - closing.size()) != closing)
        return std::nullopt;
    const std::string_view text = document.substr(opening.size(), document.size() - opening.size() - closing.size());
    const bool isPlain = std::all_of(text.begin(), text.end(), [](char letter) {
        return letter >= ' ' && letter <= '~' && letter != '<' && letter != '>' && letter != '&';
    });
    return isPlain ? std::optional(text) : std::nullopt;
}

} // namespace

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef /*allocator*/, CFDataRef xmlData,
                                                  CFOptionFlags /*mutabilityOption*/, CFStringRef* errorString)
{
    if (errorString != nullptr)
        *errorString = nullptr;
    const std::vector<UInt8>& bytes = cf::as<cf::Data>(xmlData, "CFPropertyListCreateFromXMLData").bytes;
    if (const auto plain = plainString({reinterpret_cast<const char*>(bytes.data()), bytes.size()}))
        return cf::createString(std::u16string(plain->begin(), plain->end()));
    QXmlStreamReader xml(QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    const QString text = readString(xml);
    if (!xml.hasError())
        return cf::createString(text.toStdU16String());
    if (errorString != nullptr)
        *errorString = cf::createString(xml.errorString().toStdU16String());
    return nullptr;
}
