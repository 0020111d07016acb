#pragma once

#include <QColor>
#include <QPixmap>

namespace Helpers::NQt {

/// A pixmap to paint on in logical pixels, with as many device pixels as the screen uses. Parts of
/// a large one that are never painted on take no memory.
/// @param size  in logical pixels      @param ratio  device pixels for each logical pixel
[[nodiscard]] QPixmap layerPixmap(QSize size, qreal ratio, const QColor& fill);

}
