#pragma once

#include "action/frame/actionframe.h"
#include "pen/stroke.h"

#include <QColor>
#include <QCursor>
#include <QPen>
#include <QPixmap>

namespace VcAction::Frame {

/// The pen tool's frame: turns the mouse's moves into strokes or shapes on the picture. How size,
/// colour and style are chosen is its palette's.
///
/// A stroke grows in a transparent layer, so that it blends only once however often it crosses
/// itself, and is painted into the picture when the button is released.
class PenFrame : public ActionFrame {
    Q_OBJECT

public:
    /// @param size  the pen's width in logical pixels, any number
    /// @param style  0 freehand, 1 ellipse, 2 rectangle, 3 round rectangle
    /// @param transparent  whether strokes are half-transparent
    PenFrame(QWidget* parent, int size, QColor color, int style, bool transparent);

    /// Opacity of later strokes: half or full.
    void setTransparency(bool transparent);

    [[nodiscard]] int penStyle() const { return stroke.style; }
    [[nodiscard]] QColor penColor() const { return pen.color(); }
    /// In logical pixels.
    [[nodiscard]] int penWidth() const { return stroke.width; }
    /// From 0 to 1.
    [[nodiscard]] double penOpacity() const { return opacity; }

    void updateCursor() override;
    void draw(QPaintDevice* device) override;

public slots:
    void setPen(QColor color);
    void setPenSize(int size);
    void setStyle(int style);

protected:
    /// A pixmap of the frame's size, almost transparent, for derived tools; made when first asked
    /// for.
    [[nodiscard]] QPixmap& blankPixmap();

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QRegion liveRegion() const;
    void makePen(const QColor& color);
    void extendStroke();
    void draw(QPainter* painter) const;
    void showStroke(QPaintDevice* device);
    void drawNewPolygon();
    void commitStroke();
    void clearStrokeLayer();
    void commitShape();
    void colorizeCursor();

    Stroke stroke;
    /// Null until it is asked for.
    QPixmap blankLayer;
    QPixmap strokeLayer;
    /// What of the layer has been painted on since the last press.
    QRect strokeRect;
    /// Whether the newest segment is not in the layer, since it came while a shape was dragged out.
    bool isSegmentPending = false;
    QPen pen;
    double opacity;
    QPixmap cursorPixmap;
    QPixmap pointerMul;
    QPixmap pointerTop;
    int wheelRemainder = 0;

    /// In the pen's colour: one object, however often it is pushed.
    QCursor coloredCursor;
};

}
