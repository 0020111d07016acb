#pragma once

#include <QImage>
#include <QTest>

/// The shapes' entries in their list.
enum ShapeEntry { EllipseEntry = 0, RectangleEntry = 1, RoundRectEntry = 2 };

/// Rows for each shape dragged out in each direction; columns "entry", "from" and "to".
/// @param box  what the shape spans, device pixels
void addShapeDrags(QRect box);

/// Rows for each shape; column "entry".
void addShapes();

/// Whether both pictures show the same, but for the pixels at the edges of what the first shows.
[[nodiscard]] bool isSameInside(const QImage& one, const QImage& other);

/// How many pixels have about this colour.
[[nodiscard]] int countOf(const QImage& picture, QColor colour);

/// Whether the colour fills as much of the picture as the shape does of its box: an ellipse less
/// than a round rectangle, that less than all.
/// @param box  size of what the shape spans, device pixels; an edge's pixels may be missing
[[nodiscard]] bool fillsAs(ShapeEntry shape, const QImage& picture, QColor colour, QSize box);
