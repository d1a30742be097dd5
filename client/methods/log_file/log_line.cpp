// SPDX-License-Identifier: Apache-2.0
#include "client/methods/log_file/log_line.h"

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
    return QStringLiteral("\\u%1").arg(static_cast<ushort>(character.unicode()), 4, 16, QLatin1Char('0'));
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
            result += QStringLiteral("\\\\");
        else if (character == u'\n')
            result += QStringLiteral("\\n");
        else if (character == u'\t')
            result += QStringLiteral("\\t");
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
