#include "tests/desktop/harness/palettelayout.h"

namespace {

constexpr QSizeF PaletteSize{305, 85}; // logical pixels
constexpr int GapToScreenEdge = 80; // logical pixels

}

PaletteLayout::PaletteLayout(QSize screen, qreal devicePixelRatio)
    : scale(devicePixelRatio)
    , corner(screen.width() - (PaletteSize.width() + GapToScreenEdge) * scale,
             screen.height() - (PaletteSize.height() + GapToScreenEdge) * scale)
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
    return QRectF(corner, PaletteSize * scale).toAlignedRect();
}

QPoint PaletteLayout::at(QPointF inside) const
{
    return (corner + inside * scale).toPoint();
}
