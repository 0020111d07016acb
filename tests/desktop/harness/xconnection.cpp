#include "tests/desktop/harness/xconnection.h"

#include <cstring>

XConnection::XConnection(const QByteArray& display)
    : connection(xcb_connect(display.constData(), nullptr))
    , screen(xcb_setup_roots_iterator(xcb_get_setup(raw())).data)
{
}

xcb_atom_t XConnection::atom(const char* name) const
{
    const auto length = static_cast<uint16_t>(std::strlen(name));
    const auto cookie = xcb_intern_atom(raw(), 0, length, name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(raw(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QSize XConnection::size() const
{
    const auto cookie = xcb_get_geometry(raw(), root());
    const Reply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(raw(), cookie, nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

void XConnection::synchronise() const
{
    const Reply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(raw(), xcb_get_input_focus(raw()), nullptr));
}
