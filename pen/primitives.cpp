#include "pen/primitives.h"

#include <QPainter>
#include <QPainterPath>

namespace VcAction::Frame {

namespace {

/// Percentage of the round rectangle's half sides.
constexpr qreal roundness = 25;

// By way of a path: QPainter's own ellipses, unless smoothed, reach pixels beyond their box when they
// are flat (seen in Qt 6.4.2), and would leave a trail. A path costs nothing where they do not.
void paintEllipse(QPainter& painter, const QRect& box)
{
    QPainterPath ellipse;
    ellipse.addEllipse(box);
    painter.drawPath(ellipse);
}

}

void paintSegment(QPainter& painter, QPointF from, QPointF to)
{
    // The toolkit paints no round caps on a line without length.
    if (from == to)
        painter.drawPoint(to);
    else
        painter.drawLine(from, to);
}

void paintShape(QPainter& painter, int style, const QColor& color, QPoint start, QPoint current)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(color, Qt::SolidPattern));
    switch (style) {
    case Ellipse:
        paintEllipse(painter, QRect(start, current));
        break;
    case Rectangle:
        painter.drawRect(QRect(start, current));
        break;
    case RoundRect:
        // Normalised, since the toolkit takes a negative side for a small one and rounds it to half.
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
