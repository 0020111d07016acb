#include "pen/sizeicon.h"

#include "overlay/layerpixmap.h"

#include <QPainter>

namespace VcAction::Toolbar {

namespace {

constexpr int largestSquare = 30;

QPixmap emptyIcon(qreal devicePixelRatio)
{
    return Helpers::NQt::layerPixmap({sizeIconSide, sizeIconSide}, devicePixelRatio,
                                     Qt::transparent);
}

void setUpPainter(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
}

}

QRect customSizeSquare(int penSize)
{
    // Larger ones are all the same square, which also keeps the arithmetic within bounds.
    const int size = qBound(-largestSquare, penSize, sizeIconSide);
    const int margin = sizeIconSide - size < 2 ? 1 : (sizeIconSide - size) / 2;
    const int last = margin + (size <= largestSquare ? size - 1 : largestSquare - 1);
    return {QPoint(margin, margin), QPoint(last, last)};
}

QIcon discIcon(int first, int last, qreal devicePixelRatio)
{
    QPixmap icon = emptyIcon(devicePixelRatio);
    QPainter painter(&icon);
    setUpPainter(painter);
    painter.drawEllipse(QRect(QPoint(first, first), QPoint(last, last)));
    painter.end();
    return icon;
}

QIcon squareIcon(const QRect& square, qreal devicePixelRatio)
{
    QPixmap icon = emptyIcon(devicePixelRatio);
    QPainter painter(&icon);
    setUpPainter(painter);
    painter.drawRects(&square, 1);
    painter.end();
    return icon;
}

}
