#pragma once

#include <QIcon>

/// The icons of the size chooser, black on nothing. Sizes in logical pixels.
namespace VcAction::Toolbar {

constexpr int sizeIconSide = 32;

/// The square that a custom pen size is shown as: centred, as large as the pen but at most 30 wide.
/// @param penSize  any number; the square of a negative one is empty
[[nodiscard]] QRect customSizeSquare(int penSize);

/// @param first, last  the disc's first and last column and row
[[nodiscard]] QIcon discIcon(int first, int last, qreal devicePixelRatio);
[[nodiscard]] QIcon squareIcon(const QRect& square, qreal devicePixelRatio);

}
