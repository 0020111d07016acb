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

/// A sheet for a screen of some density: unchanged for 1, else with the denser variants of those
/// images that it cuts into nine ("name-2x.png" and "name-3x.png" for "name.png").
///
/// Qt finds denser images by itself only under another name ("name@2x.png"), and counts the
/// cuts in the larger image's own pixels, so that these must grow with the image.
[[nodiscard]] QString forDensity(const QString& sheet, qreal devicePixelRatio);

}
