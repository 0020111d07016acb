#include "pen/inklayer.h"

#include "overlay/layerpixmap.h"
#include "pen/primitives.h"
#include "pen/strokegeometry.h"

#include <QPainter>

namespace VcAction::Frame {

InkLayer::InkLayer(QSize size, qreal devicePixelRatio)
    : ink(Helpers::NQt::layerPixmap(size, devicePixelRatio, Qt::transparent))
    , stroke(Helpers::NQt::layerPixmap(size, devicePixelRatio, Qt::transparent))
    , style(Freehand)
    , liveStyle(Freehand)
    , pen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
{
}

void InkLayer::setStyle(int wanted)
{
    style = wanted;
}

void InkLayer::setColor(const QColor& color)
{
    pen.setColor(color);
}

void InkLayer::setWidth(int width)
{
    pen.setWidth(width);
}

void InkLayer::setTransparency(bool transparent)
{
    opacity = transparent ? 0.5 : 1;
}

QRegion InkLayer::begin(QPointF point)
{
    // The release of an earlier press was lost: what it drew stays.
    const QRegion earlier = end();
    drawing = true;
    liveStyle = style;
    start = previous = current = point;
    strokeBox = QRect();
    extendStroke();
    return earlier + liveBox();
}

QRegion InkLayer::moveTo(QPointF point)
{
    if (!drawing)
        return {};
    const QRegion before = liveBox();
    previous = current;
    current = point;
    extendStroke();
    return before + liveBox();
}

QRegion InkLayer::end()
{
    if (!drawing)
        return {};
    drawing = false;
    QPainter painter(&ink);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLive(painter);
    painter.end();
    if (liveStyle != Freehand)
        return liveBox();
    painter.begin(&stroke);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(strokeBox, Qt::transparent);
    return strokeBox;
}

void InkLayer::paint(QPainter& painter) const
{
    painter.drawPixmap(0, 0, ink);
    if (drawing)
        paintLive(painter);
}

QRect InkLayer::liveBox() const
{
    if (liveStyle == Freehand)
        return touchedBox(previous, current, pen.width());
    // At a fractional device pixel ratio a pixel more is repainted than is drawn.
    return shapeBox(start.toPoint(), current.toPoint()).adjusted(-2, -2, 2, 2);
}

void InkLayer::extendStroke()
{
    if (liveStyle != Freehand)
        return;
    strokeBox |= liveBox();
    QPainter painter(&stroke);
    painter.setRenderHint(QPainter::Antialiasing);
    // Replaces what is there instead of blending with it: a stroke is of one opacity throughout.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setOpacity(opacity);
    painter.setPen(pen);
    paintSegment(painter, previous, current);
}

void InkLayer::paintLive(QPainter& painter) const
{
    painter.save();
    if (liveStyle == Freehand) {
        painter.setClipRect(strokeBox);
        painter.drawPixmap(0, 0, stroke);
    } else {
        painter.setOpacity(opacity);
        // On an opaque picture the pen's SourceIn puts a round rectangle in the place of what is
        // below. Where the layer is transparent that would paint nothing; this has its effect.
        if (liveStyle == RoundRect)
            painter.setCompositionMode(QPainter::CompositionMode_Source);
        paintShape(painter, liveStyle, pen.color(), start.toPoint(), current.toPoint());
    }
    painter.restore();
}

}
