#pragma once

class QComboBox;
class QSize;

namespace VcAction::Widget {

/// Has a box show its entries' icons in this size, in logical pixels. A box that is told so itself makes its
/// list at once, which takes longer than all else in it; where a sheet above it gives the size already, as a
/// palette's does, the list is not made before it opens.
void showIcons(QComboBox& box, QSize size);

}
