// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/plain_text.h"

#include "kit/texts/message_text.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace zepa {

QString plainToolTip(const QString& text)
{
    QString shown = shortened(text, longestMessage);
    // The very question that the tool tip asks. Escapes would be shown in what it takes for plain text.
    if (!Qt::mightBeRichText(shown))
        return shown;
    return u"<p style=\"white-space: pre-wrap\">"_s + shown.toHtmlEscaped() + u"</p>"_s;
}

QString withoutMnemonics(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace zepa
