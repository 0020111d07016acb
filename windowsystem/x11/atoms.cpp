#include "windowsystem/x11/atoms.h"

#include "windowsystem/x11/connection.h"

#include <array>
#include <vector>

namespace Windowing::X11 {

namespace {

constexpr std::array usualOnes{activeWindow,     supportingWmCheck,  wmName,
                               wmState,          wmStateAbove,       wmWindowType,
                               wmWindowTypeDock, wmWindowTypeNormal, wmWindowTypeNotification,
                               wmOpaqueRegion,   picomShadow,        frameExtents};

}

Atoms::Atoms(xcb_connection_t* connection, std::span<const QByteArrayView> usual)
    : server(connection)
{
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const QByteArrayView name : usual)
        cookies.push_back(ask(name));
    for (size_t i = 0; i < usual.size(); ++i)
        known[usual[i].toByteArray()] = answer(cookies[i]);
}

xcb_atom_t Atoms::of(QByteArrayView name)
{
    xcb_atom_t& found = known[name.toByteArray()];
    if (found == XCB_ATOM_NONE)
        found = answer(ask(name));
    return found;
}

xcb_intern_atom_cookie_t Atoms::ask(QByteArrayView name) const
{
    return xcb_intern_atom(server, false, static_cast<uint16_t>(name.size()), name.data());
}

xcb_atom_t Atoms::answer(xcb_intern_atom_cookie_t cookie) const
{
    const auto reply = replyTo(xcb_intern_atom_reply, server, cookie);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_atom_t atom(QByteArrayView name)
{
    static Atoms atoms(connection(), usualOnes);
    return atoms.of(name);
}

}
