// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// What XML cannot say in plain, and how we say it all the same.
///
/// XML 1.0 has no place for most control characters, unpaired surrogates, U+FFFE and U+FFFF, turns a carriage return
/// into a line feed, and allows few characters in names. Each such piece is written as a processing instruction inside
/// the element, with its UTF-16 units in hexadecimal, blanks between them:
///
///   <?zepa-text d800 1?>          these units belong to the element's text, here
///   <?zepa-name 61 20 62?>        the element's name (its tag is then "_")
///   <?zepa-attribute 61=d800?>    an attribute: name, equals sign, value
///
/// Every other program reads such a file, too, and finds all ordinary text unchanged.
namespace zepa::xml {

inline constexpr char16_t textTarget[] = u"zepa-text";
inline constexpr char16_t nameTarget[] = u"zepa-name";
inline constexpr char16_t attributeTarget[] = u"zepa-attribute";

/// The tag of an element whose name is written as an instruction.
inline constexpr char16_t placeholderTag[] = u"_";

/// Whether any XML reader takes `name` for a name: ASCII letters, digits, "_", "-" and "."; no name that XML or its
/// namespaces keep for themselves.
bool isPlainName(QStringView name);

/// How many units from the start of `text` can stand in a document as they are and come back unchanged.
qsizetype plainLength(QStringView text);

/// How many units from the start of `text` cannot.
qsizetype unspeakableLength(QStringView text);

/// "d800 1" for the units 0xD800 and 1; empty for no units.
QString toUnits(QStringView text);
/// The reverse, in time linear in `units`; nothing when it is not what toUnits() writes.
std::optional<QString> fromUnits(QStringView units);

} // namespace zepa::xml
