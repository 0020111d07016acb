#pragma once

#include <xcb/xcb.h>

#include <memory>

namespace osUtils::X11 {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection besides the toolkit's: for what it shall not wait for, or where it has none.
using OwnConnection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// Connects to the server at the other end of a connection. Null where $DISPLAY leads to another one,
/// or to none.
[[nodiscard]] OwnConnection connectBeside(xcb_connection_t* other);

}
