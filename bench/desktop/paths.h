#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

namespace Bench {

/// Where nothing but ink appears in any program: away from the edges, palettes and buttons. Device
/// pixels.
[[nodiscard]] QRect paperOn(QSize screen);

/// The first points of lines to and fro, from top to bottom, that never touch the ink of a pen of 5
/// pixels.
/// @param step  from point to point, device pixels, 6 or more
[[nodiscard]] QList<QPoint> lines(QRect paper, int count, int step);

/// A spiral of four turns with a wave in its line, 560 pixels wide, as a hand in a hurry draws
/// within a second. It does not cross itself.
[[nodiscard]] QList<QPoint> spiral(QPoint centre, int count);

/// The points in the order drawn with every pixel between them.
[[nodiscard]] QList<QPoint> withoutGaps(const QList<QPoint>& points);

/// Where the n-th of many strokes begins. A stroke of 20 pixels to the right touches none of the
/// first 5,000 others.
[[nodiscard]] QPoint strokeStart(QRect paper, int number);

}
