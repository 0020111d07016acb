#pragma once

#include "windowsystem/x11/connection.h"

#include <cstdint>
#include <string>
#include <vector>

/// Properties of windows, over any connection. They are asked for first and read later: on a
/// distant server every wait counts.
namespace Windowing::X11 {

using PropertyReply = ReplyPointer<xcb_get_property_reply_t>;

[[nodiscard]] xcb_get_property_cookie_t askForProperty(xcb_connection_t* server,
                                                       xcb_window_t window, xcb_atom_t name);

/// The numbers of 32 bits, or the bytes, that a reply holds; none if there is no reply or it is of
/// another format.
[[nodiscard]] std::vector<uint32_t> numbersIn(const PropertyReply& reply);
[[nodiscard]] std::string bytesIn(const PropertyReply& reply);

[[nodiscard]] std::vector<uint32_t> numbersOf(xcb_connection_t* server, xcb_window_t window,
                                              xcb_atom_t name);

/// The window by which the running window manager announces itself; none if none runs.
/// @param check  the atom of _NET_SUPPORTING_WM_CHECK
[[nodiscard]] xcb_window_t managerWindow(xcb_connection_t* server, xcb_window_t root,
                                         xcb_atom_t check);

}
