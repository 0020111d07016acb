#include "examples/liveboard/boardframe.h"

#include "pen/pencursor.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace LiveBoard {

BoardFrame::BoardFrame()
    : ActionFrame(nullptr, LiveEngine, 0, 0)
    , ink(size(), devicePixelRatioF())
{
    trackDirtyRegion();
}

void BoardFrame::draw(QPaintDevice* device)
{
    QPainter painter(device);
    ink.paint(painter);
}

void BoardFrame::setPen(QColor color)
{
    ink.setColor(color);
    penCursor = VcAction::Frame::penCursor(color, devicePixelRatioF());
    updateCursor();
}

void BoardFrame::updateCursor()
{
    if (!isPointerOverToolbar())
        QApplication::setOverrideCursor(penCursor);
}

void BoardFrame::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        markDirty(ink.begin(exactPosition(*event)));
    // Fades the palette and repaints what is marked.
    ActionFrame::mousePressEvent(event);
}

void BoardFrame::mouseMoveEvent(QMouseEvent* event)
{
    markDirty(ink.moveTo(exactPosition(*event)));
    repaintMove(*event);
}

void BoardFrame::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        markDirty(ink.end());
    repaintDirty();
}

}
