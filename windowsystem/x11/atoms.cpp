#include "windowsystem/x11/atoms.h"

#include "windowsystem/x11/connection.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <map>

namespace Windowing::X11 {

namespace {

constexpr std::array usual{activeWindow,     supportingWmCheck,  wmName,
                           wmState,          wmStateAbove,       wmWindowType,
                           wmWindowTypeDock, wmWindowTypeNormal, wmWindowTypeNotification,
                           wmOpaqueRegion,   picomShadow,        frameExtents};

class Atoms {
public:
    Atoms();
    xcb_atom_t of(QByteArrayView name);

private:
    static xcb_intern_atom_cookie_t ask(QByteArrayView name);
    static xcb_atom_t answer(xcb_intern_atom_cookie_t cookie);

    // An atom is the same as long as the server runs.
    std::map<QByteArray, xcb_atom_t> known;
};

Atoms::Atoms()
{
    std::array<xcb_intern_atom_cookie_t, usual.size()> cookies{};
    std::transform(usual.begin(), usual.end(), cookies.begin(), ask);
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

xcb_intern_atom_cookie_t Atoms::ask(QByteArrayView name)
{
    return xcb_intern_atom(connection(), false, static_cast<uint16_t>(name.size()), name.data());
}

xcb_atom_t Atoms::answer(xcb_intern_atom_cookie_t cookie)
{
    const ReplyPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}

xcb_atom_t atom(QByteArrayView name)
{
    static Atoms atoms;
    return atoms.of(name);
}

}
