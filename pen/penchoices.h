#pragma once

class QComboBox;

namespace VcAction::Widget {
class VcColorComboBox;
}

/// What the pen's palettes offer, each choice with its icon, its name and, under Qt::UserRole, its
/// value. The boxes' widths and places are the palettes'.
namespace VcAction::Toolbar {

/// Fills a box with the preset sizes, in logical pixels.
void fillSizes(QComboBox& box);
/// Selects a size, adding it to the list if need be.
void chooseSize(QComboBox& box, int size);

/// Fills a box with the shapes: the frame's styles 1, 2 and 3.
void fillShapes(QComboBox& box);

/// Adds the preset colours that follow the one which the box was made with.
void addPresetColors(VcAction::Widget::VcColorComboBox& box);

}
