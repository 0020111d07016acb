#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>

class QColor;
class QPainter;
class QPen;

namespace VcAction::Frame {

/// The pen's styles by their numbers.
enum PenStyle { Freehand = 0, Ellipse = 1, Rectangle = 2, RoundRect = 3 };

/// What the pen draws from press to release: a freehand stroke, or a shape that is dragged out.
/// Between strokes it is the pen's tip. Values only; the ink and its layers are the owner's.
///
/// Points and boxes are in the frame's logical pixels.
struct Stroke {
    /// Whatever is not freehand is dragged out as a shape.
    int style = Freehand;
    int width = 1;
    bool drawing = false;
    /// Points with fractions: on a dense screen the pointer moves by less than a logical pixel.
    QPointF startPoint{};
    QPointF previousPoint{};
    QPointF currentPoint{};

    [[nodiscard]] bool isFreehand() const { return style == Freehand; }

    void begin(QPointF point);
    void moveTo(QPointF point);

    /// What painting is clipped to: the newest segment's box, or the shape's.
    [[nodiscard]] QRect drawRect() const;
    /// The pixels that the newest segment, the shape or the pen's tip can change.
    [[nodiscard]] QRect liveBox() const;
};

/// The box that a segment is painted in: both points with a margin of the pen's width, from the
/// smaller coordinate less the width to the greater one plus the width, exclusive.
[[nodiscard]] QRect segmentBox(QPointF from, QPointF to, int penWidth);

/// The pixels that a round-capped segment can change, with room for its antialiased edge.
[[nodiscard]] QRect touchedBox(QPointF from, QPointF to, int penWidth);

/// The rectangle that spans both points, inclusive, whatever direction it was dragged in.
[[nodiscard]] QRect shapeBox(QPoint from, QPoint to);

/// Paints the newest segment with the painter's opacity and hints, a dot if it has no length.
/// Replaces what is there instead of blending with it: a stroke is of one opacity throughout.
void paintSegment(QPainter& painter, const Stroke& stroke, const QPen& pen);

/// Paints the shape, filled and without outline, with the painter's opacity, hints and composition
/// mode. Nothing for other styles.
void paintShape(QPainter& painter, const Stroke& stroke, const QColor& color);

}
