#pragma once

#include <xcb/xcb.h>

/// The toolkit's own connection to the X server.
namespace osUtils::X11 {

/// Null where the toolkit does not run on an X server.
[[nodiscard]] xcb_connection_t* connection();

/// The root window of a server's first screen.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* server);

/// That of the toolkit's connection, which it needs.
[[nodiscard]] xcb_window_t rootWindow();

}
