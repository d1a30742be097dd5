// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_line.h"

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

bool isHarmless(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString codeOf(QChar character)
{
    return u"\\u%1"_s.arg(static_cast<ushort>(character.unicode()), 4, 16, QLatin1Char('0'));
}

QString escaped(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const bool isPair = character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair)
            result += QStringView(text).sliced(i++, 2);
        else if (character == u'\\')
            result += u"\\\\"_s;
        else if (character == u'\n')
            result += u"\\n"_s;
        else if (character == u'\t')
            result += u"\\t"_s;
        else
            result += character.isSurrogate() || !isHarmless(character) ? codeOf(character) : QString(character);
    }
    return result;
}

} // namespace

QByteArray logLine(const QStringList& columns)
{
    QStringList escapedColumns;
    for (const QString& column : columns)
        escapedColumns.append(escaped(column));
    return escapedColumns.join(u'\t').toUtf8() + '\n';
}

} // namespace zepa
