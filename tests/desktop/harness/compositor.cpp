#include "tests/desktop/harness/compositor.h"

#include "tests/desktop/harness/xconnection.h"

Compositor::Compositor(const XConnection& connection, const QByteArray& display)
    : x(connection)
    // No settings file: shadows for every kind of window, and no fading, which tests would wait
    // for.
    , compositor({.program = executable,
                  .arguments = {"--config", "/dev/null", "--backend", "xrender", "--shadow",
                                "--shadow-opacity", "0.9"},
                  .environment = home.environment(display)})
{
}

bool Compositor::isInCharge() const
{
    const auto cookie = xcb_get_selection_owner(x.raw(), x.atom("_NET_WM_CM_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x.raw(), cookie, nullptr));
    return reply && reply->owner != XCB_NONE;
}
