#include "tests/desktop/harness/poppedupmenu.h"

namespace {

constexpr xcb_keycode_t EscapeKey = 9; // on every keyboard of the server's

}

PoppedUpMenu::PoppedUpMenu(const QByteArray& display, QRect place, QColor colour)
    : x(display)
    , window(xcb_generate_id(x.raw()))
{
    const uint32_t values[] = {colour.rgb() & RGB_MASK, 1};
    xcb_create_window(x.raw(), XCB_COPY_FROM_PARENT, window, x.root(),
                      static_cast<int16_t>(place.x()), static_cast<int16_t>(place.y()),
                      static_cast<uint16_t>(place.width()), static_cast<uint16_t>(place.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(x.raw(), window);
    x.synchronise();
    grab();
}

void PoppedUpMenu::grab()
{
    const auto pointerCookie =
        xcb_grab_pointer(x.raw(), 0, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
    const auto keyboardCookie = xcb_grab_keyboard(x.raw(), 0, window, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(x.raw(), pointerCookie, nullptr));
    const Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(x.raw(), keyboardCookie, nullptr));
    grabbed = pointer && keyboard && pointer->status == XCB_GRAB_STATUS_SUCCESS
        && keyboard->status == XCB_GRAB_STATUS_SUCCESS;
}

bool PoppedUpMenu::isOpen()
{
    x.synchronise();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x.raw())}) {
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
        if ((event->response_type & ~0x80) == XCB_KEY_PRESS && key.detail == EscapeKey)
            close();
    }
    return open;
}

void PoppedUpMenu::close()
{
    open = false;
    xcb_destroy_window(x.raw(), window);
    xcb_ungrab_keyboard(x.raw(), XCB_CURRENT_TIME);
    xcb_ungrab_pointer(x.raw(), XCB_CURRENT_TIME);
    x.synchronise();
}
