#include "windowsystem/x11/property.h"

namespace Windowing::X11 {

xcb_get_property_cookie_t askForProperty(xcb_connection_t* server, xcb_window_t window,
                                         xcb_atom_t name)
{
    // In units of four bytes: more windows than anybody opens.
    constexpr uint32_t longest = 0x10000;
    return xcb_get_property(server, false, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
}

std::vector<uint32_t> numbersIn(const PropertyReply& reply)
{
    if (!reply || reply->format != 32)
        return {};
    const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::string bytesIn(const PropertyReply& reply)
{
    if (!reply || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

std::vector<uint32_t> numbersOf(xcb_connection_t* server, xcb_window_t window, xcb_atom_t name)
{
    return numbersIn(replyTo(xcb_get_property_reply, server, askForProperty(server, window, name)));
}

xcb_window_t managerWindow(xcb_connection_t* server, xcb_window_t root, xcb_atom_t check)
{
    // It is the manager's own, and its property points to itself. The root window's property
    // outlives a window manager that has crashed, and ids are reused.
    const std::vector<uint32_t> announced = numbersOf(server, root, check);
    const bool runs =
        !announced.empty() && numbersOf(server, announced.front(), check) == announced;
    return runs ? announced.front() : xcb_window_t{XCB_WINDOW_NONE};
}

}
