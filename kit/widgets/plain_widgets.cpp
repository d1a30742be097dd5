// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/plain_widgets.h"

#include "kit/texts/plain_text.h"

#include <QLabel>
#include <QPushButton>

namespace zepa {

void setPlainToolTip(QWidget& widget, const QString& text)
{
    widget.setToolTip(plainToolTip(text));
    // Without a description of its own, a screen reader gets the tool tip's source.
    widget.setAccessibleDescription(text);
}

QPushButton* makeButton(const QString& text, const char* name, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QLabel* makePlainLabel(QWidget* parent, const QString& text)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

} // namespace zepa
