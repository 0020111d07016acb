#pragma once

#include <QImage>
#include <QRect>

namespace osUtils::X11 {

/// Picture of an area of the server's screen as it is now, in the memory that the server's answer came
/// in: the toolkit's own way makes a copy in the server and one here. Needs the X11 platform.
/// @param area  in device pixels
/// @return  null where the server refuses it, or tells its pixels in another way than 32 bits each
[[nodiscard]] QImage rootPicture(const QRect& area);

}
