#include "pen/stroke.h"

#include <QPainter>
#include <QPainterPath>

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

/// Percentage of the round rectangle's half sides.
constexpr qreal roundness = 25;

// By way of a path: QPainter's own ellipses, unless smoothed, reach pixels beyond their box when
// they are flat (seen in Qt 6.4.2), and would leave a trail. A path costs nothing where they do
// not.
void paintEllipse(QPainter& painter, const QRect& box)
{
    QPainterPath ellipse;
    ellipse.addEllipse(box);
    painter.drawPath(ellipse);
}

}

void Stroke::begin(QPointF point)
{
    drawing = true;
    startPoint = previousPoint = currentPoint = point;
}

void Stroke::moveTo(QPointF point)
{
    previousPoint = currentPoint;
    currentPoint = point;
}

QRect Stroke::drawRect() const
{
    return isFreehand() ? segmentBox(previousPoint, currentPoint, width)
                        : shapeBox(startPoint.toPoint(), currentPoint.toPoint());
}

QRect Stroke::liveBox() const
{
    if (isFreehand())
        return touchedBox(drawing ? previousPoint : currentPoint, currentPoint, width);
    // As for the pen's tip: at a fractional ratio a pixel more is repainted than is drawn.
    return drawing ? drawRect().adjusted(-2, -2, 2, 2) : QRect();
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

void paintSegment(QPainter& painter, const Stroke& stroke, const QPen& pen)
{
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setPen(pen);
    // Qt paints no round caps on a line without length.
    if (stroke.previousPoint == stroke.currentPoint)
        painter.drawPoint(stroke.currentPoint);
    else
        painter.drawLine(stroke.previousPoint, stroke.currentPoint);
}

void paintShape(QPainter& painter, const Stroke& stroke, const QColor& color)
{
    const QPoint start = stroke.startPoint.toPoint();
    const QPoint current = stroke.currentPoint.toPoint();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(color, Qt::SolidPattern));
    switch (stroke.style) {
    case Ellipse:
        paintEllipse(painter, QRect(start, current));
        break;
    case Rectangle:
        painter.drawRect(QRect(start, current));
        break;
    case RoundRect:
        // Normalised, since Qt takes a negative side for a small one and rounds it to half.
        painter.drawRoundedRect(
            QRectF(start.x(), start.y(), current.x() - start.x() + 1, current.y() - start.y() + 1)
                .normalized(),
            roundness, roundness, Qt::RelativeSize);
        break;
    default:
        break;
    }
}

}
