// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/escapes.h"

using namespace Qt::StringLiterals;

namespace zepa {

bool isControlling(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString escapeOf(QChar character)
{
    if (character == u'\n')
        return u"\\n"_s;
    if (character == u'\t')
        return u"\\t"_s;
    return u"\\u%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
}

} // namespace zepa
