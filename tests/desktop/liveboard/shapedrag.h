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

/// The share of its box that a shape fills: an ellipse less than a round rectangle, that less than all.
[[nodiscard]] qreal shareFilledBy(ShapeEntry shape);
