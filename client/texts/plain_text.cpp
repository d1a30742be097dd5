// SPDX-License-Identifier: Apache-2.0
#include "client/texts/plain_text.h"

#include "client/ui/message_text.h"

#include <QLabel>
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

void setPlainToolTip(QWidget& widget, const QString& text)
{
    widget.setToolTip(plainToolTip(text));
    // Without a description of its own, a screen reader gets the tool tip's source.
    widget.setAccessibleDescription(text);
}

QLabel* makePlainLabel(QWidget* parent, const QString& text)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

QString withoutMnemonics(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace zepa
