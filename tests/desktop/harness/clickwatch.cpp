#include "tests/desktop/harness/clickwatch.h"

ClickWatch::ClickWatch(const QByteArray& display, xcb_window_t window)
    : x(display)
{
    const uint32_t mask = XCB_EVENT_MASK_BUTTON_PRESS;
    xcb_change_window_attributes(x.raw(), window, XCB_CW_EVENT_MASK, &mask);
    x.synchronise();
}

int ClickWatch::presses()
{
    x.synchronise();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x.raw())}) {
        if ((event->response_type & ~0x80) == XCB_BUTTON_PRESS)
            ++count;
    }
    return count;
}
