// SPDX-License-Identifier: Apache-2.0
#include "kit/values/xml_escapes.h"

#include <QChar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::xml {

namespace {

bool isAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// How many units the character at the start of `text` has when XML can hold it; 0 when it cannot.
qsizetype plainUnits(QStringView text)
{
    const QChar c = text.front();
    if (c.isHighSurrogate())
        return text.size() > 1 && text[1].isLowSurrogate() ? 2 : 0;
    if (c.isLowSurrogate() || c.unicode() >= 0xFFFE)
        return 0;
    return c.unicode() >= 0x20 || c == u'\t' || c == u'\n' ? 1 : 0;
}

} // namespace

bool isPlainName(QStringView name)
{
    if (name.isEmpty() || !(isAsciiLetter(name.front()) || name.front() == u'_'))
        return false;
    if (name.startsWith(u"xml"_s, Qt::CaseInsensitive))
        return false;
    return std::all_of(name.begin(), name.end(), [](QChar c) {
        return isAsciiLetter(c) || (c >= u'0' && c <= u'9') || c == u'_' || c == u'-' || c == u'.';
    });
}

qsizetype plainLength(QStringView text)
{
    qsizetype length = 0;
    while (length < text.size()) {
        const qsizetype units = plainUnits(text.sliced(length));
        if (units == 0)
            break;
        length += units;
    }
    return length;
}

qsizetype unspeakableLength(QStringView text)
{
    qsizetype length = 0;
    while (length < text.size() && plainUnits(text.sliced(length)) == 0)
        ++length;
    return length;
}

QString toUnits(QStringView text)
{
    QString units;
    for (const QChar c : text) {
        if (!units.isEmpty())
            units += u' ';
        units += QString::number(c.unicode(), 16);
    }
    return units;
}

std::optional<QString> fromUnits(QStringView units)
{
    QString text;
    while (!units.isEmpty()) {
        const qsizetype blank = units.indexOf(u' ');
        const QStringView unit = blank < 0 ? units : units.first(blank);
        bool isUnit = false;
        const ushort value = unit.toUShort(&isUnit, 16);
        if (!isUnit)
            return std::nullopt;
        text += QChar(value);
        units = blank < 0 ? QStringView() : units.sliced(blank + 1);
    }
    return text;
}

} // namespace zepa::xml
