#include "pen/inklayer.h"

#include "overlay/layerpixmap.h"

#include <QPainter>

namespace VcAction::Frame {

InkLayer::InkLayer(QSize size, qreal devicePixelRatio)
    : ink(Helpers::NQt::layerPixmap(size, devicePixelRatio, Qt::transparent))
    , strokeLayer(Helpers::NQt::layerPixmap(size, devicePixelRatio, Qt::transparent))
    , pen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
{
}

void InkLayer::setStyle(int style)
{
    nextStyle = style;
}

void InkLayer::setColor(const QColor& color)
{
    pen.setColor(color);
}

void InkLayer::setWidth(int width)
{
    pen.setWidth(width);
    stroke.width = pen.width();
}

void InkLayer::setTransparency(bool transparent)
{
    opacity = transparent ? 0.5 : 1;
}

QRegion InkLayer::begin(QPointF point)
{
    // The release of an earlier press was lost: what it drew stays.
    const QRegion earlier = end();
    stroke.style = nextStyle;
    stroke.begin(point);
    strokeBox = QRect();
    extendStroke();
    return earlier + stroke.liveBox();
}

QRegion InkLayer::moveTo(QPointF point)
{
    if (!stroke.drawing)
        return {};
    const QRegion before = stroke.liveBox();
    stroke.moveTo(point);
    extendStroke();
    return before + stroke.liveBox();
}

QRegion InkLayer::end()
{
    if (!stroke.drawing)
        return {};
    QPainter painter(&ink);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLive(painter);
    painter.end();
    const QRect shape = stroke.liveBox();
    stroke.drawing = false;
    if (!stroke.isFreehand())
        return shape;
    painter.begin(&strokeLayer);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(strokeBox, Qt::transparent);
    return strokeBox;
}

void InkLayer::paint(QPainter& painter) const
{
    painter.drawPixmap(0, 0, ink);
    if (stroke.drawing)
        paintLive(painter);
}

void InkLayer::extendStroke()
{
    if (!stroke.isFreehand())
        return;
    strokeBox |= stroke.liveBox();
    QPainter painter(&strokeLayer);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity);
    paintSegment(painter, stroke, pen);
}

void InkLayer::paintLive(QPainter& painter) const
{
    painter.save();
    if (stroke.isFreehand()) {
        painter.setClipRect(strokeBox);
        painter.drawPixmap(0, 0, strokeLayer);
    } else {
        painter.setOpacity(opacity);
        // On an opaque picture the pen's SourceIn puts a round rectangle in the place of what is
        // below. Where the layer is transparent that would paint nothing; this has its effect.
        if (stroke.style == RoundRect)
            painter.setCompositionMode(QPainter::CompositionMode_Source);
        paintShape(painter, stroke, pen.color());
    }
    painter.restore();
}

}
