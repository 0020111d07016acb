#pragma once

#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

namespace osUtils::X11 {

/// As rootPicture(), in memory that the server writes to itself: it spares the way through the
/// connection, which takes a large picture as long as all the rest.
/// @param server  is of no further use where a proxy in between loses the memory
/// @return  null, too, where the server is not of this machine
[[nodiscard]] QImage sharedRootPicture(xcb_connection_t* server, const QRect& area);

}
