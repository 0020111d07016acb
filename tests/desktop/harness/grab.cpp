#include "tests/desktop/harness/grab.h"

#include "tests/desktop/harness/xconnection.h"

Grab::Grab(const XConnection& connection, xcb_window_t window)
    : x(connection)
{
    const auto pointerCookie = xcb_grab_pointer(
        x.raw(), 1, window, XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE,
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keyboardCookie = xcb_grab_keyboard(x.raw(), 1, window, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(x.raw(), pointerCookie, nullptr));
    const Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(x.raw(), keyboardCookie, nullptr));
    held = pointer && pointer->status == XCB_GRAB_STATUS_SUCCESS && keyboard
        && keyboard->status == XCB_GRAB_STATUS_SUCCESS;
}

Grab::~Grab()
{
    xcb_ungrab_pointer(x.raw(), XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(x.raw(), XCB_CURRENT_TIME);
    x.synchronise();
}
