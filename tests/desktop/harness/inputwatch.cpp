#include "tests/desktop/harness/inputwatch.h"

InputWatch::InputWatch(const QByteArray& display, xcb_window_t window)
    : x(display)
{
    const uint32_t mask = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_KEY_PRESS;
    xcb_change_window_attributes(x.raw(), window, XCB_CW_EVENT_MASK, &mask);
    x.synchronise();
}

int InputWatch::presses()
{
    countEvents();
    return buttonCount;
}

int InputWatch::keys()
{
    countEvents();
    return keyCount;
}

void InputWatch::countEvents()
{
    x.synchronise();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x.raw())}) {
        const int type = event->response_type & ~0x80;
        buttonCount += type == XCB_BUTTON_PRESS ? 1 : 0;
        keyCount += type == XCB_KEY_PRESS ? 1 : 0;
    }
}
