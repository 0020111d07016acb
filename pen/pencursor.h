#pragma once

#include <QColor>
#include <QCursor>
#include <QPixmap>

/// The mouse cursor in the pen's colour.
namespace VcAction::Frame {

/// The part of the cursor that takes the pen's colour; its mask is the cursor's shape.
[[nodiscard]] QPixmap pointerMulImage(qreal devicePixelRatio);
/// What is painted over the coloured part as it is.
[[nodiscard]] QPixmap pointerTopImage(qreal devicePixelRatio);

/// The cursor's picture, made of both images.
[[nodiscard]] QPixmap colorizedPointer(const QColor& color, const QPixmap& pointerMul,
                                       const QPixmap& pointerTop);

/// The cursor of such a picture: the pen's tip lies on the pointer.
[[nodiscard]] QCursor penCursor(const QPixmap& pointer);
/// The same from the beginning.
[[nodiscard]] QCursor penCursor(const QColor& color, qreal devicePixelRatio);

}
