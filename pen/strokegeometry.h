#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>

/// The areas that the pen's primitives cover, as functions of points and widths. Frame coordinates,
/// logical pixels.
namespace VcAction::Frame {

/// The box that a segment is painted in: both points with a margin of the pen's width, from the
/// smaller coordinate less the width to the greater one plus the width, exclusive.
[[nodiscard]] QRect segmentBox(QPointF from, QPointF to, int penWidth);

/// The pixels that a round-capped segment can change, with room for its antialiased edge.
[[nodiscard]] QRect touchedBox(QPointF from, QPointF to, int penWidth);

/// The rectangle that spans both points, inclusive, whatever direction it was dragged in.
[[nodiscard]] QRect shapeBox(QPoint from, QPoint to);

}
