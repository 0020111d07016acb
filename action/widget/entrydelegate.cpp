#include "action/widget/entrydelegate.h"

#include <QApplication>
#include <QPainter>

namespace VcAction::Widget {

void paintSwatchEdge(QPainter& painter, const QRectF& swatch)
{
    constexpr qreal half = 0.5;
    painter.save();
    painter.setPen(
        QPen(QColor(0x1f, 0x18, 0x14, 0x78), 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatch.adjusted(half, half, -half, -half));
    painter.restore();
}

bool isColor(const QVariant& entryData)
{
    return entryData.userType() == QMetaType::QColor;
}

void EntryDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // A combo box's list offers the box's font, not the one that the sheet gives the list.
    if (option->widget) {
        option->font = option->widget->font();
        option->fontMetrics = QFontMetrics(option->font);
    }
    if (!(option->state & QStyle::State_Selected))
        return;
    // The sheet's plain colours: the style would shade the entry and tint its icon.
    option->state &= ~(QStyle::State_Selected | QStyle::State_MouseOver | QStyle::State_HasFocus);
    option->backgroundBrush = option->palette.highlight();
    option->palette.setBrush(QPalette::Text, option->palette.highlightedText());
}

void EntryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!isColor(index.data(Qt::UserRole)))
        return;
    QStyleOptionViewItem entry = option;
    initStyleOption(&entry, index);
    const QStyle* style = entry.widget ? entry.widget->style() : QApplication::style();
    const QRect place =
        style->subElementRect(QStyle::SE_ItemViewItemDecoration, &entry, entry.widget);
    paintSwatchEdge(
        *painter,
        QStyle::alignedRect(entry.direction, Qt::AlignCenter, entry.decorationSize, place));
}

}
