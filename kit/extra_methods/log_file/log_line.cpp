// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_line.h"

#include "kit/texts/escapes.h"

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

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
        else
            result += character.isSurrogate() || isControlling(character) ? escapeOf(character) : QString(character);
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
