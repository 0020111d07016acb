#include "tests/desktop/harness/palettelayout.h"

namespace {

constexpr int GapToScreenEdge = 80; // logical pixels

}

PaletteLayout::PaletteLayout(QSize screen, qreal devicePixelRatio, QSizeF palette)
    : scale(devicePixelRatio)
    , size(palette)
    , corner(screen.width() - (size.width() + GapToScreenEdge) * scale,
             screen.height() - (size.height() + GapToScreenEdge) * scale)
{
}

PaletteLayout PaletteLayout::movedBy(QPoint distance) const
{
    PaletteLayout moved = *this;
    moved.corner += distance;
    return moved;
}

QRect PaletteLayout::area() const
{
    return QRectF(corner, size * scale).toAlignedRect();
}

QPoint PaletteLayout::at(QPointF inside) const
{
    return (corner + inside * scale).toPoint();
}
