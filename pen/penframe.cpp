#include "pen/penframe.h"

#include "action/widget/wheelsteps.h"
#include "overlay/layerpixmap.h"
#include "pen/pencursor.h"
#include "pen/pentoolbar.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace VcAction::Frame {

using Helpers::NQt::layerPixmap;

namespace {

constexpr QColor almostTransparent(0, 0, 0, 1);

double opacityFor(bool transparent)
{
    return transparent ? 0.5 : 1.0;
}

}

PenFrame::PenFrame(QWidget* parent, int size, QColor color, int style, bool transparent)
    : ActionFrame(parent, ScreenshotEngine, 0, 0)
    , stroke{style, size}
    , strokeLayer(layerPixmap(this->size(), devicePixelRatioF(), Qt::transparent))
    , opacity(opacityFor(transparent))
    , pointerMul(pointerMulImage(devicePixelRatioF()))
    , pointerTop(pointerTopImage(devicePixelRatioF()))
{
    trackDirtyRegion();
    paintOnly(&PenFrame::liveRegion);
    stroke.startPoint = stroke.previousPoint = stroke.currentPoint = mapFromGlobal(QCursor::pos());
    setDrawBack(true);
    setPen(color);
    fetchBackground();
}

QPixmap& PenFrame::blankPixmap()
{
    if (blankLayer.isNull())
        blankLayer = layerPixmap(size(), devicePixelRatioF(), almostTransparent);
    return blankLayer;
}

void PenFrame::setPen(QColor color)
{
    makePen(color);
    colorizeCursor();
    updateCursor();
    markDirty(stroke.liveBox());
    repaintDirty();
}

void PenFrame::setPenSize(int size)
{
    markDirty(stroke.liveBox());
    stroke.width = size;
    makePen(pen.color());
    markDirty(stroke.liveBox());
    repaintDirty();
}

void PenFrame::setStyle(int style)
{
    // The next repaint takes away what the old style has on the screen.
    markDirty(stroke.liveBox());
    if (stroke.drawing && stroke.isFreehand() && style != Freehand) {
        markDirty(strokeRect);
        clearStrokeLayer();
    }
    stroke.style = style;
    if (stroke.drawing) {
        // A stroke begins with the newest move of the shape that it takes the place of.
        if (isSegmentPending)
            extendStroke();
        markDirty(stroke.liveBox());
    }
    setDrawBack(true);
}

void PenFrame::setTransparency(bool transparent)
{
    opacity = opacityFor(transparent);
}

void PenFrame::makePen(const QColor& color)
{
    pen = QPen(QBrush(color, Qt::SolidPattern), static_cast<qreal>(stroke.width), Qt::SolidLine,
               Qt::RoundCap, Qt::RoundJoin);
    // The newest segment is painted again, over what the older pen has left.
    if (stroke.drawing)
        extendStroke();
}

void PenFrame::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        markDirty(stroke.liveBox());
        // The release of an earlier press was lost: what it drew stays.
        if (stroke.drawing)
            drawNewPolygon();
        stroke.begin(exactPosition(*event));
        strokeRect = QRect();
        extendStroke();
        markDirty(stroke.liveBox());
    }
    ActionFrame::mousePressEvent(event);
}

void PenFrame::mouseMoveEvent(QMouseEvent* event)
{
    if (!stroke.drawing || !stroke.isFreehand())
        markDirty(stroke.liveBox());
    stroke.moveTo(exactPosition(*event));
    if (stroke.drawing)
        extendStroke();
    markDirty(stroke.liveBox());
    repaintMove(*event);
}

void PenFrame::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        markDirty(stroke.liveBox());
        if (stroke.isFreehand() && !getDrawBack()) {
            setDrawBack(true);
            markDirty(rect());
        }
        // Without its press there is nothing to commit: that went to a list which it has closed.
        if (std::exchange(stroke.drawing, false))
            drawNewPolygon();
    }
    repaintDirty();
}

void PenFrame::wheelEvent(QWheelEvent* event)
{
    if (toolbar && toolbar->geometry().contains(event->position().toPoint()))
        return;
    const Widget::WheelTurn turn = Widget::wheelTurn(*event);
    const Widget::WheelSteps wheel = Widget::wheelSteps(wheelRemainder, turn.delta);
    wheelRemainder = wheel.remainder;
    auto* palette = qobject_cast<Toolbar::PenToolbar*>(toolbar);
    if (palette && !turn.horizontal)
        palette->incrementColor(-wheel.steps);
    event->accept();
}

QRegion PenFrame::liveRegion() const
{
    // While a stroke lies bare the picture is part of what is drawn.
    if (!getDrawBack())
        return rect();
    const QRegion live(stroke.liveBox());
    return stroke.drawing && stroke.isFreehand() ? live + strokeRect : live;
}

void PenFrame::extendStroke()
{
    // Once for each segment: painted again, its antialiased edge would grow harder with every
    // paint.
    isSegmentPending = !stroke.isFreehand();
    if (isSegmentPending)
        return;
    const QRect box = stroke.drawRect();
    strokeRect |= box;
    QPainter painter(&strokeLayer);
    painter.setOpacity(opacity);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(box);
    paintSegment(painter, stroke, pen);
}

void PenFrame::draw(QPaintDevice* device)
{
    if (stroke.drawing && stroke.isFreehand()) {
        showStroke(device);
        return;
    }
    if (!stroke.drawing && !stroke.isFreehand())
        return;
    // The pen's tip is where the last event saw the pointer: asking for it anew would cost a round
    // trip to the window system for each paint and could only be ahead of the ink.
    QPainter painter(device);
    painter.setClipRect(stroke.drawRect());
    painter.setOpacity(opacity);
    painter.setPen(pen);
    if (stroke.drawing)
        draw(&painter);
    else
        painter.drawPoint(stroke.currentPoint);
}

void PenFrame::showStroke(QPaintDevice* device)
{
    QPainter painter(device);
    painter.setClipRect(strokeRect);
    if (!getDrawBack())
        painter.drawPixmap(0, 0, *background());
    painter.drawPixmap(0, 0, strokeLayer);
}

void PenFrame::draw(QPainter* painter) const
{
    switch (stroke.style) {
    case RoundRect:
        painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
        [[fallthrough]];
    case Ellipse:
    case Rectangle:
        paintShape(*painter, stroke, pen.color());
        break;
    default:
        paintSegment(*painter, stroke, pen);
        break;
    }
}

void PenFrame::drawNewPolygon()
{
    if (stroke.isFreehand())
        commitStroke();
    else
        commitShape();
}

void PenFrame::commitStroke()
{
    if (!background()->isNull()) {
        QPainter painter(paintDevice());
        painter.setClipRect(strokeRect);
        painter.drawPixmap(0, 0, strokeLayer);
    }
    clearStrokeLayer();
}

void PenFrame::clearStrokeLayer()
{
    // Only where the stroke was, a pixel wider for the rounding of edges at a fractional ratio.
    QPainter painter(&strokeLayer);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(strokeRect.adjusted(-1, -1, 1, 1), Qt::transparent);
}

void PenFrame::commitShape()
{
    if (background()->isNull())
        return;
    QPainter painter(paintDevice());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(stroke.drawRect());
    painter.setPen(pen);
    painter.setOpacity(opacity);
    draw(&painter);
}

void PenFrame::colorizeCursor()
{
    cursorPixmap = colorizedPointer(pen.color(), pointerMul, pointerTop);
    coloredCursor = penCursor(cursorPixmap);
}

void PenFrame::updateCursor()
{
    if (!isPointerOverToolbar())
        QApplication::setOverrideCursor(coloredCursor);
}

}
