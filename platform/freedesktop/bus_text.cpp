// SPDX-License-Identifier: Apache-2.0
#include "bus_text.h"

#include <QChar>
#include <QStringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::freedesktop {

namespace {

constexpr char32_t shownInstead = 0xFFFD;
constexpr QChar ellipsis(0x2026);

bool isShowable(char32_t character)
{
    if (character == U'\n' || character == U'\t')
        return true;
    return QChar::category(character) != QChar::Other_Control && !QChar::isNonCharacter(character);
}

/// Embeddings, overrides and isolates: one that is left open also turns round what a service puts behind the text, and
/// an override makes "exe.png" of "gnp.exe". The marks, which plain text needs, are none of them.
bool turnsText(char32_t character)
{
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

/// The character at `position`, which moves behind it.
char32_t takeCharacter(QStringView text, qsizetype& position)
{
    const QChar unit = text[position++];
    if (unit.isSurrogate()) {
        const bool paired = unit.isHighSurrogate() && position < text.size() && text[position].isLowSurrogate();
        if (!paired)
            return shownInstead;
        const char32_t character = QChar::surrogateToUcs4(unit, text[position++]);
        return isShowable(character) ? character : shownInstead;
    }
    if (unit == u'\r') {
        if (position < text.size() && text[position] == u'\n')
            ++position;
        return U'\n';
    }
    return isShowable(unit.unicode()) ? unit.unicode() : shownInstead;
}

void append(QString& result, char32_t character, Markup markup)
{
    if (markup == Markup::Escaped && character == U'&')
        result += u"&amp;"_s;
    else if (markup == Markup::Escaped && character == U'<')
        result += u"&lt;"_s;
    else if (markup == Markup::Escaped && character == U'>')
        result += u"&gt;"_s;
    else
        result += QChar::fromUcs4(character);
}

/// Most texts can stay as they are, and this sees most of them at once. Says no rather too often.
bool isFit(QStringView text, Markup markup)
{
    constexpr char16_t firstBeyondControls = 0xA0;
    constexpr char16_t firstSurrogate = 0xD800;
    return std::all_of(text.begin(), text.end(), [markup](QChar character) {
        const char16_t unit = character.unicode();
        if (markup == Markup::Escaped && (unit == u'&' || unit == u'<' || unit == u'>'))
            return false;
        return (unit >= u' ' && unit <= u'~') || unit == u'\n' ||
               (unit >= firstBeyondControls && unit < firstSurrogate && !turnsText(unit));
    });
}

} // namespace

QString busText(const QString& text, qsizetype limit, Markup markup)
{
    if (!text.isEmpty() && text.size() <= limit && isFit(text, markup))
        return text;
    QString result = QLatin1String("");
    qsizetype cutAt = 0;
    for (qsizetype position = 0; position < text.size();) {
        if (const char32_t character = takeCharacter(text, position); !turnsText(character))
            append(result, character, markup);
        if (result.size() > limit) {
            result.truncate(cutAt);
            result += ellipsis;
            break;
        }
        if (result.size() < limit)
            cutAt = result.size();
    }
    return result;
}

} // namespace zepa::freedesktop
