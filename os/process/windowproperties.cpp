#include "os/process/windowproperties.h"

#include "os/x11/replypointer.h"

#include <iterator>
#include <string_view>

namespace osUtils::Process {

using X11::ReplyPointer;

namespace {

constexpr std::string_view names[] = {
    "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_PID",
    "WM_CLIENT_MACHINE",  "WM_CLASS",         "_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID",
};

// The length of properties that are read, in units of four bytes: more windows than anybody opens.
constexpr uint32_t longest = 0x10000;

/// Null for a property that is not made of units of so many bits.
ReplyPointer<xcb_get_property_reply_t> read(xcb_connection_t* connection,
                                            WindowProperties::Cookie cookie, int bits)
{
    ReplyPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (reply && reply->format != bits)
        reply.reset();
    return reply;
}

}

WindowProperties::WindowProperties(xcb_connection_t* server)
    : connection(server)
{
    static_assert(std::size(names) == std::tuple_size_v<decltype(atoms)>);
    std::array<xcb_intern_atom_cookie_t, std::size(names)> cookies{};
    for (std::size_t i = 0; i < cookies.size(); ++i)
        cookies[i] = xcb_intern_atom(connection, false, static_cast<uint16_t>(names[i].size()),
                                     names[i].data());
    for (std::size_t i = 0; i < cookies.size(); ++i) {
        const ReplyPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies[i], nullptr));
        atoms[i] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
}

WindowProperties::Cookie WindowProperties::ask(xcb_window_t window, Property property) const
{
    return xcb_get_property(connection, false, window, atoms[static_cast<std::size_t>(property)],
                            XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
}

std::vector<uint32_t> WindowProperties::numbers(Cookie cookie) const
{
    const auto reply = read(connection, cookie, 32);
    if (!reply)
        return {};
    const auto* first = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::string WindowProperties::bytes(Cookie cookie) const
{
    const auto reply = read(connection, cookie, 8);
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

}
