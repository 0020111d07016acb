#include "bench/desktop/compositor.h"

#include "bench/desktop/failure.h"
#include "tests/desktop/harness/desktop.h"

namespace Bench {

namespace {

bool isComposited(const XConnection& x)
{
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x.raw(), xcb_get_selection_owner(x.raw(), x.atom("_NET_WM_CM_S0")), nullptr));
    return reply && reply->owner != XCB_NONE;
}

}

Compositor::Compositor(const Desktop& desktop)
    : process({.program = "/usr/bin/picom",
               .arguments = {"--backend", "xrender", "--config", "/dev/null"},
               .environment = desktop.home.environment(desktop.display)})
{
    waitFor([&] { return isComposited(desktop.x); }, "there is no compositor");
}

}
