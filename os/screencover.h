#pragma once

#include <QList>
#include <QRect>

#include <optional>

class QScreen;

/// How large a window must be to cover a screen to the pixel. The toolkit rounds a screen's size to
/// whole logical pixels; at a fractional ratio these can end short of the screen's edge, or beyond it.
namespace osUtils::System {

/// The smallest size that the toolkit turns into at least so many device pixels.
/// @param device  in device pixels      @param ratio  device pixels for each logical pixel
/// @return  in logical pixels
[[nodiscard]] QSize coveringSize(QSize device, qreal ratio);

/// The place of a screen in device pixels, found among those of all monitors.
/// @param screen  in the toolkit's coordinates: the origin in device pixels, the size in logical ones
[[nodiscard]] std::optional<QRect> monitorOf(const QRect& screen, qreal ratio,
                                             const QList<QRect>& monitors);

/// The place of a screen in device pixels; without a value where the window system does not tell.
[[nodiscard]] std::optional<QRect> deviceGeometry(const QScreen& screen);

/// The geometry that a window needs to cover the screen, in the toolkit's coordinates.
[[nodiscard]] QRect coveringGeometry(const QScreen& screen);

}
