#include "pen/pencursor.h"

#include "overlay/layerpixmap.h"
#include "overlay/sharpimage.h"

#include <QBitmap>
#include <QPainter>

namespace VcAction::Frame {

namespace {

constexpr QSize cursorSize(32, 32);
/// The pen's tip in the images.
constexpr QPoint hotSpot(6, 29);

}

QPixmap pointerMulImage(qreal devicePixelRatio)
{
    return Helpers::NQt::sharpImage(":/resource/action/pen/Img/pointerMul.png", devicePixelRatio);
}

QPixmap pointerTopImage(qreal devicePixelRatio)
{
    return Helpers::NQt::sharpImage(":/resource/action/pen/Img/pointerTop.png", devicePixelRatio);
}

QPixmap colorizedPointer(const QColor& color, const QPixmap& pointerMul, const QPixmap& pointerTop)
{
    // Transparent first: a pixmap filled with an opaque colour has no alpha to take away from.
    QPixmap pointer =
        Helpers::NQt::layerPixmap(cursorSize, pointerMul.devicePixelRatio(), Qt::transparent);
    QPainter painter(&pointer);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), cursorSize), color);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawPixmap(0, 0, pointerMul);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.drawPixmap(0, 0, pointerTop);
    painter.end();
    pointer.setMask(pointerMul.mask());
    return pointer;
}

QCursor penCursor(const QPixmap& pointer)
{
    return Helpers::NQt::sharpCursor(pointer, hotSpot);
}

QCursor penCursor(const QColor& color, qreal devicePixelRatio)
{
    return penCursor(colorizedPointer(color, pointerMulImage(devicePixelRatio),
                                      pointerTopImage(devicePixelRatio)));
}

}
