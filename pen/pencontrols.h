#pragma once

class QPoint;
class QWidget;

namespace VcAction::Widget {
class VcCheckBox;
class VcColorComboBox;
class VcComboBox;
}

/// The controls of the pen's palettes, of one size and look wherever they are. Places are the top-left
/// corners of their group boxes in the parent, which owns them, in logical pixels.
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

}
