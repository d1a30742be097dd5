// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/message_text.h"

#include <QStringView>

namespace zepa {

namespace {

constexpr int mostLineBreaks = 200;
constexpr int mostMarks = 10;
constexpr QChar ellipsis = u'\u2026';

bool isLineBreak(char32_t c)
{
    return c == U'\n' || c == U'\r' || c == U'\v' || c == U'\f' || c == U'\x85' || c == U'\u2028' || c == U'\u2029';
}

/// U+FFFC stands for a picture inside of Qt's documents, so nobody may write one.
bool isMeaningless(char32_t c)
{
    const bool control = c < U' ' || (c >= U'\x7f' && c < U'\xa0');
    const bool nonCharacter = (c >= 0xfdd0 && c <= 0xfdef) || (c & 0xfffe) == 0xfffe;
    return control || nonCharacter || c == QChar::ObjectReplacementCharacter;
}

bool isMark(char32_t c)
{
    const QChar::Category category = QChar::category(c);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
}

bool isDirectionControl(QChar c)
{
    return (c >= u'\u202a' && c <= u'\u202e') || (c >= u'\u2066' && c <= u'\u2069');
}

/// The character at `at`, which moves behind it; U+FFFD for half of one.
char32_t nextCharacter(QStringView text, qsizetype& at)
{
    const QChar unit = text.at(at++);
    if (!unit.isSurrogate())
        return unit.unicode();
    if (unit.isHighSurrogate() && at < text.size() && text.at(at).isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text.at(at++));
    return QChar::ReplacementCharacter;
}

} // namespace

QString messageText(const QString& sent)
{
    QString shown;
    shown.reserve(qMin(sent.size(), longestMessage + 2));
    int lineBreaks = 0;
    int marks = 0;
    // What is left out makes no room for more: the end of the sender's text may be far away.
    const QStringView read = QStringView(sent).first(qMin(sent.size(), longestMessage));
    for (qsizetype at = 0; at < read.size();) {
        const char32_t c = nextCharacter(read, at);
        marks = isMark(c) ? marks + 1 : 0;
        if (marks > mostMarks)
            continue;
        if (isLineBreak(c)) {
            if (c == U'\r' && at < read.size() && read.at(at) == u'\n')
                ++at;
            shown += ++lineBreaks > mostLineBreaks ? QChar(u' ') : QChar(QChar::LineSeparator);
        } else if (c == U'\t') {
            shown += u' ';
        } else {
            shown += QChar::fromUcs4(isMeaningless(c) ? char32_t(QChar::ReplacementCharacter) : c);
        }
    }
    if (sent.size() > longestMessage)
        shown = shortened(shown, longestMessage - 1) + ellipsis;
    return shown;
}

QString nameText(const QString& sent)
{
    QString name = messageText(sent.first(qMin(sent.size(), longestName * 2)));
    name.replace(QChar::LineSeparator, u' ').removeIf(isDirectionControl);
    return shortened(name, longestName);
}

QString shortened(const QString& text, qsizetype longest)
{
    if (text.size() <= longest)
        return text;
    const qsizetype room = longest - 1;
    return text.first(text.at(room - 1).isHighSurrogate() ? room - 1 : room) + ellipsis;
}

Qt::LayoutDirection directionOf(const QString& text, Qt::LayoutDirection otherwise)
{
    for (qsizetype at = 0; at < text.size();) {
        switch (QChar::direction(nextCharacter(text, at))) {
        case QChar::DirL:
            return Qt::LeftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Qt::RightToLeft;
        default:
            break;
        }
    }
    return otherwise;
}

} // namespace zepa
