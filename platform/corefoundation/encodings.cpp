// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/data.h"
#include "corefoundation/string.h"

#include <QString>
#include <QStringConverter>

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <span>
#include <vector>

namespace {

using Bytes = std::span<const UInt8>;
constexpr char16_t asciiEnd = 0x80;
constexpr char16_t byteOrderMark = 0xfeff;
constexpr char16_t swappedByteOrderMark = 0xfffe;

/// Mac Roman from 0x80 on, as Apple's table for it gives it (ROMAN.TXT of the Unicode Consortium, with the euro sign).
constexpr std::array<char16_t, 128> macRoman = {
    0x00c4, 0x00c5, 0x00c7, 0x00c9, 0x00d1, 0x00d6, 0x00dc, 0x00e1, 0x00e0, 0x00e2, 0x00e4, 0x00e3, 0x00e5,
    0x00e7, 0x00e9, 0x00e8, 0x00ea, 0x00eb, 0x00ed, 0x00ec, 0x00ee, 0x00ef, 0x00f1, 0x00f3, 0x00f2, 0x00f4,
    0x00f6, 0x00f5, 0x00fa, 0x00f9, 0x00fb, 0x00fc, 0x2020, 0x00b0, 0x00a2, 0x00a3, 0x00a7, 0x2022, 0x00b6,
    0x00df, 0x00ae, 0x00a9, 0x2122, 0x00b4, 0x00a8, 0x2260, 0x00c6, 0x00d8, 0x221e, 0x00b1, 0x2264, 0x2265,
    0x00a5, 0x00b5, 0x2202, 0x2211, 0x220f, 0x03c0, 0x222b, 0x00aa, 0x00ba, 0x03a9, 0x00e6, 0x00f8, 0x00bf,
    0x00a1, 0x00ac, 0x221a, 0x0192, 0x2248, 0x2206, 0x00ab, 0x00bb, 0x2026, 0x00a0, 0x00c0, 0x00c3, 0x00d5,
    0x0152, 0x0153, 0x2013, 0x2014, 0x201c, 0x201d, 0x2018, 0x2019, 0x00f7, 0x25ca, 0x00ff, 0x0178, 0x2044,
    0x20ac, 0x2039, 0x203a, 0xfb01, 0xfb02, 0x2021, 0x00b7, 0x201a, 0x201e, 0x2030, 0x00c2, 0x00ca, 0x00c1,
    0x00cb, 0x00c8, 0x00cd, 0x00ce, 0x00cf, 0x00cc, 0x00d3, 0x00d4, 0xf8ff, 0x00d2, 0x00da, 0x00db, 0x00d9,
    0x0131, 0x02c6, 0x02dc, 0x00af, 0x02d8, 0x02d9, 0x02da, 0x00b8, 0x02dd, 0x02db, 0x02c7};

constexpr char16_t swapped(char16_t unit)
{
    return static_cast<char16_t>((unit >> 8) | (unit << 8));
}

std::optional<std::u16string> decodeUnicode(Bytes bytes, bool external)
{
    if (bytes.size() % sizeof(char16_t) != 0)
        return std::nullopt;
    std::u16string units;
    for (std::size_t i = 0; i < bytes.size(); i += sizeof(char16_t))
        units += static_cast<char16_t>((bytes[i] << 8) | bytes[i + 1]);
    const bool swap =
        external ? !units.empty() && units.front() == swappedByteOrderMark : std::endian::native == std::endian::little;
    if (swap)
        std::transform(units.begin(), units.end(), units.begin(), swapped);
    if (external && !units.empty() && units.front() == byteOrderMark)
        units.erase(0, 1);
    return units;
}

/// A byte-order mark is left out of an external representation only.
std::optional<std::u16string> decodeUtf8(Bytes bytes, bool external)
{
    const auto mark = external ? QStringDecoder::Flag::Default : QStringDecoder::Flag::ConvertInitialBom;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | mark);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (decoder.hasError())
        return std::nullopt;
    return text.toStdU16String();
}

std::optional<std::u16string> decodeSingleBytes(Bytes bytes, CFStringEncoding encoding)
{
    std::u16string units;
    for (const UInt8 byte : bytes) {
        if (byte < asciiEnd)
            units += byte;
        else if (encoding == kCFStringEncodingMacRoman)
            units += macRoman[byte - asciiEnd];
        else
            return std::nullopt;
    }
    return units;
}

std::optional<std::u16string> decode(Bytes bytes, CFStringEncoding encoding, bool external)
{
    switch (encoding) {
    case kCFStringEncodingUnicode:
        return decodeUnicode(bytes, external);
    case kCFStringEncodingUTF8:
        return decodeUtf8(bytes, external);
    case kCFStringEncodingMacRoman:
    case kCFStringEncodingASCII:
        return decodeSingleBytes(bytes, encoding);
    default:
        return std::nullopt;
    }
}

/// The unit's byte in an encoding of single bytes; none when it has no place there.
std::optional<UInt8> encodeSingleByte(char16_t unit, CFStringEncoding encoding)
{
    if (unit < asciiEnd)
        return static_cast<UInt8>(unit);
    if (encoding != kCFStringEncodingMacRoman)
        return std::nullopt;
    const auto place = std::find(macRoman.begin(), macRoman.end(), unit);
    if (place == macRoman.end())
        return std::nullopt;
    return static_cast<UInt8>(asciiEnd + (place - macRoman.begin()));
}

/// 2 for a surrogate pair, 1 for any other unit.
std::size_t lengthOfCharacter(const std::u16string& units, std::size_t at)
{
    const bool isPair =
        at + 1 < units.size() && QChar::isHighSurrogate(units[at]) && QChar::isLowSurrogate(units[at + 1]);
    return isPair ? 2 : 1;
}

using MaybeBytes = std::optional<std::vector<UInt8>>;

/// A surrogate pair that has no place becomes one loss byte, like any character.
MaybeBytes encodeSingleBytes(const std::u16string& units, CFStringEncoding encoding, UInt8 lossByte)
{
    std::vector<UInt8> bytes;
    for (std::size_t i = 0; i < units.size(); i += lengthOfCharacter(units, i)) {
        const std::optional<UInt8> byte = encodeSingleByte(units[i], encoding);
        if (!byte && lossByte == 0)
            return std::nullopt;
        bytes.push_back(byte.value_or(lossByte));
    }
    return bytes;
}

/// With a byte-order mark in the machine's order, as an external representation has it.
MaybeBytes encodeUnicode(const std::u16string& units)
{
    const std::u16string marked = byteOrderMark + units;
    const auto* first = reinterpret_cast<const UInt8*>(marked.data());
    return std::vector<UInt8>(first, first + marked.size() * sizeof(char16_t));
}

/// A lone surrogate is all that has no place in UTF-8.
MaybeBytes encodeUtf8(const std::u16string& units, UInt8 lossByte)
{
    std::vector<UInt8> bytes;
    std::size_t length = 0;
    for (std::size_t i = 0; i < units.size(); i += length) {
        length = lengthOfCharacter(units, i);
        if (length == 1 && QChar::isSurrogate(units[i])) {
            if (lossByte == 0)
                return std::nullopt;
            bytes.push_back(lossByte);
            continue;
        }
        const QByteArray character =
            QStringView(units).mid(static_cast<qsizetype>(i), static_cast<qsizetype>(length)).toUtf8();
        bytes.insert(bytes.end(), character.begin(), character.end());
    }
    return bytes;
}

MaybeBytes encode(const std::u16string& units, CFStringEncoding encoding, UInt8 lossByte)
{
    switch (encoding) {
    case kCFStringEncodingUnicode:
        return encodeUnicode(units);
    case kCFStringEncodingUTF8:
        return encodeUtf8(units, lossByte);
    case kCFStringEncodingMacRoman:
    case kCFStringEncodingASCII:
        return encodeSingleBytes(units, encoding, lossByte);
    default:
        return std::nullopt;
    }
}

} // namespace

CFStringRef CFStringCreateWithBytes(CFAllocatorRef /*allocator*/, const UInt8* bytes, CFIndex numBytes,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation)
{
    if (numBytes < 0 || (bytes == nullptr && numBytes > 0))
        cf::misuse("CFStringCreateWithBytes");
    std::optional<std::u16string> units =
        decode(Bytes(bytes, static_cast<std::size_t>(numBytes)), encoding, isExternalRepresentation != 0);
    return units ? cf::createString(std::move(*units)) : nullptr;
}

CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef /*allocator*/, CFStringRef string,
                                               CFStringEncoding encoding, UInt8 lossByte)
{
    const cf::String& text = cf::as<cf::String>(string, "CFStringCreateExternalRepresentation");
    MaybeBytes bytes = encode(text.units, encoding, lossByte);
    return bytes ? cf::createData(std::move(*bytes)) : nullptr;
}
