// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace zepa {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading | Qt::AlignVCenter);
    style()->drawItemText(&painter, rect(), int(side), palette(), isEnabled(), shown, foregroundRole());
}

} // namespace zepa
