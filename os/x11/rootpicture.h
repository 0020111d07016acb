#pragma once

#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

namespace osUtils::X11 {

/// Picture of an area of a server's screen as it is now, in the memory that the server's answer came
/// in: the toolkit's own way makes a copy in the server and one here.
/// @param area  in device pixels
/// @return  null where the server refuses it, or tells its pixels in another way than 32 bits each
[[nodiscard]] QImage rootPicture(xcb_connection_t* server, const QRect& area);

}
