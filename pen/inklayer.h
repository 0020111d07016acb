#pragma once

#include "pen/stroke.h"

#include <QPen>
#include <QPixmap>
#include <QRegion>

class QPainter;

namespace VcAction::Frame {

/// Lasting ink on a transparent layer, for a frame without a picture to draw into: freehand strokes
/// and shapes, dragged out from begin() to end(). Knows nothing of windows and mice.
///
/// Points and areas are in the frame's logical pixels. What is under way keeps the style that it
/// was begun with; colour, width and opacity count from the next piece on.
class InkLayer {
public:
    /// @param size  of the frame, logical pixels
    InkLayer(QSize size, qreal devicePixelRatio);

    /// @param style  one of the pen's styles
    void setStyle(int style);
    void setColor(const QColor& color);
    void setWidth(int width);
    /// Half or full opacity.
    void setTransparency(bool transparent);

    /// The press, the moves and the release. Moves without a press do nothing.
    /// @return  what is to be repainted
    QRegion begin(QPointF point);
    QRegion moveTo(QPointF point);
    QRegion end();

    /// Paints all ink, with what is under way on top.
    void paint(QPainter& painter) const;

private:
    void extendStroke();
    void paintLive(QPainter& painter) const;

    QPixmap ink;
    /// The freehand stroke under way, so that it blends once however often it crosses itself.
    QPixmap strokeLayer;
    /// What of the layer has been painted on since the press.
    QRect strokeBox;
    Stroke stroke;
    int nextStyle = Freehand;
    QPen pen;
    double opacity = 1;
};

}
