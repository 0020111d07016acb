#pragma once

#include <QIcon>

class QComboBox;
class QPoint;
class QWidget;

namespace VcAction::Widget {
class VcCheckBox;
class VcColorComboBox;
class VcComboBox;
}

/// The controls of the pen's palettes, of one size and look wherever they are. Places are the
/// top-left corners of their group boxes in the parent, which owns them, in logical pixels.
namespace VcAction::Toolbar {

class ActionToolbar;

/// An empty box in a group box titled "Size", which is its parent.
[[nodiscard]] VcAction::Widget::VcComboBox* makeSizeBox(QWidget* parent, QPoint place);

/// The preset colours in a group box titled "Color".
/// @param toolbar  the palette, which does not fade while a custom colour is being chosen
[[nodiscard]] VcAction::Widget::VcColorComboBox* makeColorBox(QWidget* parent, QPoint place,
                                                              ActionToolbar* toolbar);

/// A check box labelled "Transparent".
[[nodiscard]] VcAction::Widget::VcCheckBox* makeTransparencyBox(QWidget* parent, QPoint place);

/// Fills a box with the preset sizes, in logical pixels. Each choice has its icon, its name and,
/// under Qt::UserRole, its value.
void fillSizes(QComboBox& box);
/// Selects a size, adding it to the list if need be.
void chooseSize(QComboBox& box, int size);

/// Fills a box with the shapes: the frame's styles 1, 2 and 3.
void fillShapes(QComboBox& box);

constexpr int sizeIconSide = 32;

/// The square that a custom pen size is shown as: centred, as large as the pen but at most 30 wide.
/// @param penSize  any number; the square of a negative one is empty
[[nodiscard]] QRect customSizeSquare(int penSize);

/// @param first, last  the disc's first and last column and row
[[nodiscard]] QIcon discIcon(int first, int last, qreal devicePixelRatio);
[[nodiscard]] QIcon squareIcon(const QRect& square, qreal devicePixelRatio);

}
