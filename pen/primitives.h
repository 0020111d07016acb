#pragma once

#include <QColor>
#include <QPoint>

class QPainter;

/// What the pen can draw, one primitive at a time, with the opacity, hints and composition mode that
/// the painter has. Coordinates are the painter's.
namespace VcAction::Frame {

/// The pen's styles by their numbers.
enum PenStyle { Freehand = 0, Ellipse = 1, Rectangle = 2, RoundRect = 3 };

/// A piece of a freehand stroke with the painter's pen; a dot if both points are the same.
void paintSegment(QPainter& painter, QPointF from, QPointF to);

/// A filled shape without outline.
/// @param style  Ellipse, Rectangle or RoundRect; nothing is painted for others
/// @param start, current  the pixels where dragging it out began and where it has come to
void paintShape(QPainter& painter, int style, const QColor& color, QPoint start, QPoint current);

}
