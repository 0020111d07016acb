#pragma once

#include <QString>

/// The look of the palette's widgets: the house colour #FF5000, the images of the resource file and
/// the Verdana typeface. Selectors name the widget classes by their meta-object class name.
namespace VcAction::Widget::StyleSheets {

[[nodiscard]] QString groupBox();
[[nodiscard]] QString comboBox();
[[nodiscard]] QString checkBox();

/// @param tabLabelWidth  width of a tab's label, logical pixels; not clamped
[[nodiscard]] QString tabHolder(int tabLabelWidth);

}
