#include "os/x11/connection.h"

#include "os/x11/replypointer.h"

#include <QGuiApplication>

#include <map>

namespace osUtils::X11 {

namespace {

xcb_atom_t askForAtom(QByteArrayView name)
{
    const auto cookie =
        xcb_intern_atom(connection(), false, static_cast<uint16_t>(name.size()), name.data());
    const ReplyPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}

xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* server)
{
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

xcb_window_t rootWindow()
{
    return rootWindow(connection());
}

xcb_atom_t atom(QByteArrayView name)
{
    // An atom is the same as long as the server runs.
    static std::map<QByteArray, xcb_atom_t> known;
    xcb_atom_t& found = known[name.toByteArray()];
    if (found == XCB_ATOM_NONE)
        found = askForAtom(name);
    return found;
}

}
