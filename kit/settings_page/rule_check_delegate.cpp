// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/rule_check_delegate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace zepa {

namespace {

const QStyle& styleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? *option.widget->style() : *QApplication::style();
}

QRect markIn(const QStyleOptionViewItem& option)
{
    const QStyle& style = styleOf(option);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    return QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
}

/// A mark is small; its surroundings count as well.
bool hits(const QStyleOptionViewItem& option, const QPointF& point)
{
    constexpr int around = 5;
    return markIn(option).adjusted(-around, -around, around, around).contains(point.toPoint());
}

/// In a dark palette some styles draw an empty box that nobody sees.
void drawOutline(QPainter& painter, const QStyleOptionViewItem& mark)
{
    const bool isChosen = mark.state.testFlag(QStyle::State_Selected);
    QColor colour = mark.palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text);
    colour.setAlphaF(0.45F);
    painter.save();
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(mark.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

} // namespace

void RuleCheckDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (!cell.features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    const QStyle& style = styleOf(cell);
    const QString count = cell.text;
    const bool isOn = cell.checkState == Qt::Checked;

    cell.text.clear();
    cell.features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    QStyleOptionViewItem mark = cell;
    mark.rect = markIn(cell);
    mark.state.setFlag(QStyle::State_HasFocus, false);
    mark.state.setFlag(isOn ? QStyle::State_On : QStyle::State_Off);
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &mark, painter, cell.widget);
    drawOutline(*painter, mark);

    if (count.isEmpty())
        return;
    const int gap = style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing, &cell, cell.widget);
    QRect behind = QStyle::visualRect(cell.direction, cell.rect, mark.rect);
    behind = QRect(QPoint(behind.right() + gap, cell.rect.top()), cell.rect.bottomRight());
    const bool isChosen = cell.state.testFlag(QStyle::State_Selected);
    style.drawItemText(painter, QStyle::visualRect(cell.direction, cell.rect, behind),
                       static_cast<int>(QStyle::visualAlignment(cell.direction, Qt::AlignLeading | Qt::AlignVCenter)),
                       cell.palette, true, count, isChosen ? QPalette::HighlightedText : QPalette::Text);
}

QSize RuleCheckDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize usual = QStyledItemDelegate::sizeHint(option, index);
    const QStyle& style = styleOf(option);
    return usual.expandedTo({0, style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget) + 6});
}

bool RuleCheckDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                    const QModelIndex& index)
{
    const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease ||
                         event->type() == QEvent::MouseButtonDblClick;
    if (!isMouse || !index.flags().testFlag(Qt::ItemIsUserCheckable))
        return QStyledItemDelegate::editorEvent(event, model, option, index);

    // A press chooses the cell, as everywhere in a table; the release toggles. That holds for the second of two quick
    // clicks as well.
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (event->type() != QEvent::MouseButtonRelease || mouse.button() != Qt::LeftButton ||
        !hits(option, mouse.position()))
        return false;
    return model->setData(index, {}, Qt::CheckStateRole);
}

} // namespace zepa
