#include "bench/desktop/cursorwatch.h"

#include "bench/desktop/failure.h"
#include "tests/desktop/harness/xconnection.h"

#include <xcb/xfixes.h>

#include <poll.h>

namespace Bench {

CursorWatch::CursorWatch(const XConnection& connection)
    : x(connection)
{
    const Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(x.raw(), xcb_xfixes_query_version(x.raw(), 2, 0), nullptr));
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x.raw(), &xcb_xfixes_id);
    changeEvent = extension->first_event + XCB_XFIXES_CURSOR_NOTIFY;
    xcb_xfixes_select_cursor_input(x.raw(), x.root(), XCB_XFIXES_CURSOR_NOTIFY_MASK_DISPLAY_CURSOR);
    x.synchronise();
}

Clock::time_point CursorWatch::waitForChange()
{
    const Clock::time_point end = Clock::now() + LongestWait;
    while (Clock::now() < end) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(x.raw()));
        constexpr int sentByClient = 0x80;
        if (event && (event->response_type & ~sentByClient) == changeEvent)
            return Clock::now();
        pollfd readable{xcb_get_file_descriptor(x.raw()), POLLIN, 0};
        constexpr int timeoutMs = 100;
        if (!event)
            ::poll(&readable, 1, timeoutMs);
    }
    throw Failure("the cursor does not change");
}

}
