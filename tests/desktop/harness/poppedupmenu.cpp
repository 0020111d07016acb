#include "tests/desktop/harness/poppedupmenu.h"

namespace {

constexpr xcb_keycode_t EscapeKey = 9; // on every keyboard of the server's

}

PoppedUpMenu::PoppedUpMenu(const QByteArray& display, QRect place, QColor colour)
    : x(display)
    , window(std::in_place, x, ClientWindow::Kind::Unmanaged, place, colour)
    , grab(std::in_place, x, window->id())
    , grabbed(grab->isHeld())
{
}

bool PoppedUpMenu::isOpen()
{
    x.synchronise();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x.raw())}) {
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
        if ((event->response_type & ~0x80) == XCB_KEY_PRESS && key.detail == EscapeKey)
            close();
    }
    return window.has_value();
}

void PoppedUpMenu::close()
{
    window.reset();
    grab.reset();
}
