#pragma once

#include <QRectF>
#include <QStyledItemDelegate>

namespace VcAction::Widget {

/// Outlines a swatch, so that a white one shows on white.
/// @param swatch  logical pixels; the line is painted inside
void paintSwatchEdge(QPainter& painter, const QRectF& swatch);

/// Whether a box's entry shows a colour, which is then its QColor under Qt::UserRole.
[[nodiscard]] bool isColor(const QVariant& entryData);

/// Paints the entries of a combo box's list with the list's font and their icons' own colours, and
/// an edge around those that are swatches.
class EntryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}
