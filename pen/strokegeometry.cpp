#include "pen/strokegeometry.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

namespace VcAction::Frame {

namespace {

// No frame is larger: the window system's coordinates are 16 bits wide. Keeps any pen width within
// what rectangles can hold.
constexpr qreal largestMargin = 1 << 16;

QRect boxAround(QPointF from, QPointF to, qreal margin)
{
    const qreal held = std::clamp(margin, -largestMargin, largestMargin);
    return QRectF(std::min(from.x(), to.x()) - held, std::min(from.y(), to.y()) - held,
                  std::abs(to.x() - from.x()) + 2 * held, std::abs(to.y() - from.y()) + 2 * held)
        .toAlignedRect();
}

}

QRect segmentBox(QPointF from, QPointF to, int penWidth)
{
    return boxAround(from, to, penWidth);
}

QRect touchedBox(QPointF from, QPointF to, int penWidth)
{
    // An antialiased edge reaches into the next pixel; one more, since at a fractional device pixel
    // ratio a translucent widget above is repainted a pixel short of a region's edge.
    constexpr qreal edge = 2;
    return boxAround(from, to, std::max(penWidth, 1) / 2.0 + edge);
}

QRect shapeBox(QPoint from, QPoint to)
{
    return {QPoint(std::min(from.x(), to.x()), std::min(from.y(), to.y())),
            QPoint(std::max(from.x(), to.x()), std::max(from.y(), to.y()))};
}

}
