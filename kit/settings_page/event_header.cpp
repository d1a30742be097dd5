// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/event_header.h"

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionHeader>

namespace zepa {

EventHeader::EventHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent)
{
    setSectionsClickable(true);
    setSectionResizeMode(QHeaderView::ResizeToContents);
    setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    setHighlightSections(true);
}

void EventHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    // The row of the chosen cell is written bold.
    QFont bold = font();
    bold.setBold(true);
    const int room = viewport()->width() - 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
    option->text = QFontMetrics(bold).elidedText(option->text, Qt::ElideMiddle, room);
}

} // namespace zepa
