#pragma once

#include <QString>

namespace VcAction::Widget::StyleSheets {

/// A sheet for a screen of some density: unchanged for 1, else with the denser variants of those images
/// that it cuts into nine ("name-2x.png" and "name-3x.png" for "name.png").
///
/// The toolkit finds denser images by itself only under another name ("name@2x.png"), and counts the
/// cuts in the larger image's own pixels, so that these must grow with the image.
[[nodiscard]] QString forDensity(const QString& sheet, qreal devicePixelRatio);

}
