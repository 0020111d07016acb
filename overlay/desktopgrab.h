#pragma once

#include <QPixmap>
#include <QRect>

class QScreen;

/// Pictures of what the screens show now, pixel for pixel, with the device pixel ratio of the screen
/// that they are to be shown on. A picture is null where the window system refuses it.
namespace Helpers::NQt {

/// Picture of an area, put together from the screens that it touches; black where there is none.
/// @param area  in logical desktop coordinates
/// @param screen  the screen that the area begins on and that will show the picture
[[nodiscard]] QPixmap grabArea(const QRect& area, QScreen& screen);

/// Picture of all screens, from the top-left corner of the rectangle around them.
/// @param screen  the screen that will show the picture
[[nodiscard]] QPixmap grabDesktop(const QScreen& screen);

}
