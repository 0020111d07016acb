#pragma once

#include <xcb/xcb.h>

namespace osUtils::X11 {

/// The toolkit's own connection; null on other platforms.
[[nodiscard]] xcb_connection_t* connection();

/// Of the connection's first screen, which is the only one on all desktops.
[[nodiscard]] xcb_window_t rootWindow();

}
