#include "pen/penframe.h"

#include "action/widget/wheelsteps.h"
#include "overlay/layerpixmap.h"
#include "pen/pencursor.h"
#include "pen/pentoolbar.h"
#include "pen/primitives.h"
#include "pen/strokegeometry.h"

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

PenFrame::PenFrame(QWidget* parent, int size, QColor penColor, int penStyle, bool transparent)
    : ActionFrame(parent, ScreenshotEngine, 0, 0)
    , style(penStyle)
    , blankLayer(layerPixmap(this->size(), devicePixelRatioF(), almostTransparent))
    , strokeLayer(layerPixmap(this->size(), devicePixelRatioF(), Qt::transparent))
    , penSize(size)
    , color(penColor)
    , opacity(opacityFor(transparent))
    , pointerMul(pointerMulImage(devicePixelRatioF()))
    , pointerTop(pointerTopImage(devicePixelRatioF()))
{
    trackDirtyRegion();
    paintOnly(&PenFrame::liveRegion);
    startPoint = previousPoint = currentPoint = mapFromGlobal(QCursor::pos());
    setDrawBack(true);
    setPen(penColor);
    fetchBackground();
}

void PenFrame::setPen(QColor penColor)
{
    finishPen();
    color = penColor;
    makePen();
    colorizeCursor();
    updateCursor();
    markDirty(liveBox());
    repaintDirty();
}

void PenFrame::setPenSize(int size)
{
    markDirty(liveBox());
    finishPen();
    penSize = size;
    makePen();
    markDirty(liveBox());
    repaintDirty();
}

void PenFrame::setStyle(int penStyle)
{
    // The next repaint takes away what the old style has on the screen.
    markDirty(liveBox());
    finishPen();
    if (drawing && isFreehand() && penStyle != Freehand) {
        markDirty(strokeRect);
        clearStrokeLayer();
    }
    style = penStyle;
    // A stroke begins with the newest move of the shape that it takes the place of.
    if (drawing)
        markDirty(liveBox());
    setDrawBack(true);
}

void PenFrame::setTransparency(bool transparent)
{
    finishPen();
    opacity = opacityFor(transparent);
}

void PenFrame::finishPen()
{
    if (drawing && isFreehand())
        extendStroke();
}

void PenFrame::makePen()
{
    pen = QPen(QBrush(color, Qt::SolidPattern), static_cast<qreal>(penSize), Qt::SolidLine,
               Qt::RoundCap, Qt::RoundJoin);
    // The newest segment is painted again, over what the older pen has left.
    if (drawing)
        addSegment();
}

bool PenFrame::isFreehand() const
{
    return style == Freehand;
}

void PenFrame::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        markDirty(liveBox());
        // The release of an earlier press was lost: what it drew stays.
        if (drawing)
            drawNewPolygon();
        drawing = true;
        currentPoint = previousPoint = startPoint = exactPosition(*event);
        strokeRect = QRect();
        pendingSegments.clear();
        addSegment();
        markDirty(liveBox());
    }
    ActionFrame::mousePressEvent(event);
}

void PenFrame::mouseMoveEvent(QMouseEvent* event)
{
    if (!drawing || !isFreehand())
        markDirty(liveBox());
    previousPoint = currentPoint;
    currentPoint = exactPosition(*event);
    if (drawing)
        addSegment();
    markDirty(liveBox());
    repaintMove(*event);
}

void PenFrame::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        markDirty(liveBox());
        if (isFreehand() && !getDrawBack()) {
            setDrawBack(true);
            markDirty(rect());
        }
        // Without its press there is nothing to commit: that went to a list which it has closed.
        if (std::exchange(drawing, false))
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

QRect PenFrame::liveBox() const
{
    if (isFreehand())
        return touchedBox(drawing ? previousPoint : currentPoint, currentPoint, penSize);
    if (!drawing)
        return QRect();
    // As for the pen's tip: at a fractional ratio a pixel more is repainted than is drawn.
    return shapeBox(startPoint.toPoint(), currentPoint.toPoint()).adjusted(-2, -2, 2, 2);
}

QRegion PenFrame::liveRegion() const
{
    // While a stroke lies bare the picture is part of what is drawn.
    if (!getDrawBack())
        return rect();
    return drawing && isFreehand() ? QRegion(liveBox()) + strokeRect : QRegion(liveBox());
}

void PenFrame::computeRect()
{
    if (!isFreehand()) {
        drawRect = shapeBox(startPoint.toPoint(), currentPoint.toPoint());
        return;
    }
    // The pen's tip is where the last event saw the pointer: asking for it anew would cost a round
    // trip to the window system for each paint and could only be ahead of the ink.
    drawRect = segmentBox(previousPoint, currentPoint, penSize);
    strokeRect |= drawRect;
}

void PenFrame::draw(QPaintDevice* device)
{
    computeRect();
    if (drawing && isFreehand()) {
        extendStroke();
        showStroke(device);
    } else if (drawing) {
        showPrimitive(device);
    } else if (isFreehand()) {
        showPenTip(device);
    }
}

void PenFrame::addSegment()
{
    // Of a shape's moves only the newest counts, should it go on as a stroke.
    if (!isFreehand())
        pendingSegments.clear();
    pendingSegments.append(QLineF(previousPoint, currentPoint));
}

void PenFrame::extendStroke()
{
    // Once for each segment: painted again, its antialiased edge would grow harder with every paint.
    if (pendingSegments.isEmpty())
        return;
    QPainter painter(&strokeLayer);
    painter.setOpacity(opacity);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QLineF& segment : std::as_const(pendingSegments)) {
        const QRect box = segmentBox(segment.p1(), segment.p2(), penSize);
        strokeRect |= box;
        painter.setClipRect(box);
        drawSegment(painter, segment);
    }
    pendingSegments.clear();
}

void PenFrame::showStroke(QPaintDevice* device)
{
    QPainter painter(device);
    painter.setClipRect(strokeRect);
    if (!getDrawBack())
        painter.drawPixmap(0, 0, *background());
    painter.drawPixmap(0, 0, strokeLayer);
}

void PenFrame::showPrimitive(QPaintDevice* device)
{
    QPainter painter(device);
    painter.setClipRect(drawRect);
    painter.setOpacity(opacity);
    painter.setPen(pen);
    draw(&painter);
}

void PenFrame::showPenTip(QPaintDevice* device)
{
    QPainter painter(device);
    painter.setClipRect(drawRect);
    painter.setOpacity(opacity);
    painter.setPen(pen);
    painter.drawPoint(currentPoint);
}

void PenFrame::draw(QPainter* painter)
{
    switch (style) {
    case RoundRect:
        painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
        [[fallthrough]];
    case Ellipse:
    case Rectangle:
        paintShape(*painter, style, color, startPoint.toPoint(), currentPoint.toPoint());
        break;
    default:
        drawSegment(*painter, QLineF(previousPoint, currentPoint));
        break;
    }
}

void PenFrame::drawSegment(QPainter& painter, const QLineF& segment) const
{
    // Replaces what is there instead of blending with it: a stroke is of one opacity throughout.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setPen(pen);
    paintSegment(painter, segment.p1(), segment.p2());
}

void PenFrame::drawNewPolygon()
{
    if (isFreehand())
        commitStroke();
    else
        commitShape();
}

void PenFrame::commitStroke()
{
    extendStroke();
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
    computeRect();
    QPainter painter(paintDevice());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(drawRect);
    painter.setPen(pen);
    painter.setOpacity(opacity);
    draw(&painter);
}

void PenFrame::colorizeCursor()
{
    cursorPixmap = colorizedPointer(color, pointerMul, pointerTop);
    coloredCursor = penCursor(cursorPixmap);
}

void PenFrame::updateCursor()
{
    if (!isPointerOverToolbar())
        QApplication::setOverrideCursor(coloredCursor);
}

}
