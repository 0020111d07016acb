#pragma once

#include <QList>
#include <QRect>
#include <QRegion>

#include <optional>

/// Where screens and windows lie, as functions of rectangles.
///
/// Logical coordinates are Qt's: the origin of a screen is where the window system puts it, sizes
/// and distances inside the screen are divided by its device pixel ratio. Device coordinates count
/// the window system's own pixels over the whole desktop.
namespace Windowing {

/// Index of the screen that holds a point, else of the nearest one (the first of equals).
/// @param screens  geometries, in logical coordinates; with none the index is 0
[[nodiscard]] int screenHolding(QPoint point, const QList<QRect>& screens);

/// The device pixels that an area covers.
/// @param area  in logical coordinates, seen from the screen that it begins on
/// @param screenOrigin  top-left corner of that screen
/// @param ratio  device pixels for each logical pixel of that screen
[[nodiscard]] QRect deviceRect(const QRect& area, QPoint screenOrigin, qreal ratio);

/// All device pixels of a window that a region touches.
/// @param region  in logical coordinates of the window
/// @param ratio  device pixels for each logical pixel
[[nodiscard]] QRegion deviceRegion(const QRegion& region, qreal ratio);

/// The smallest size that Qt turns into at least this many device pixels.
/// @param device  in device pixels      @param ratio  device pixels for each logical pixel
/// @return  in logical pixels
[[nodiscard]] QSize coveringSize(QSize device, qreal ratio);

/// The place of a screen in device pixels, found among the places of all monitors.
/// @param screen  in Qt's coordinates: the origin in device pixels, the size in logical ones
/// @param ratio  device pixels for each logical pixel of the screen
[[nodiscard]] std::optional<QRect> monitorOf(const QRect& screen, qreal ratio,
                                             const QList<QRect>& monitors);

}
