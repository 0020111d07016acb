#include "bench/bareclient/frozenscreen.h"

#include <cstdlib>

namespace {

constexpr uint32_t penWidth = 5; // pixels
constexpr uint32_t red = 0xff0000;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

}

FrozenScreen::FrozenScreen()
    : connection(xcb_connect(nullptr, nullptr))
    , x(connection.get())
    , screen(xcb_setup_roots_iterator(xcb_get_setup(x)).data)
    , window(xcb_generate_id(x))
    , picture(xcb_generate_id(x))
    , pen(xcb_generate_id(x))
{
    createPen();
    takePicture();
    createWindow();
    xcb_flush(x);
}

void FrozenScreen::createPen()
{
    const uint32_t values[] = {red, penWidth, XCB_CAP_STYLE_ROUND, XCB_JOIN_STYLE_ROUND,
                               XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS};
    xcb_create_gc(x, pen, screen->root,
                  XCB_GC_FOREGROUND | XCB_GC_LINE_WIDTH | XCB_GC_CAP_STYLE | XCB_GC_JOIN_STYLE
                      | XCB_GC_SUBWINDOW_MODE,
                  values);
}

void FrozenScreen::takePicture()
{
    xcb_create_pixmap(x, screen->root_depth, picture, screen->root, screen->width_in_pixels,
                      screen->height_in_pixels);
    xcb_copy_area(x, screen->root, picture, pen, 0, 0, 0, 0, screen->width_in_pixels,
                  screen->height_in_pixels);
}

void FrozenScreen::createWindow()
{
    const uint32_t values[] = {picture, 1,
                               XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_BUTTON_PRESS
                                   | XCB_EVENT_MASK_POINTER_MOTION};
    xcb_create_window(x, screen->root_depth, window, screen->root, 0, 0, screen->width_in_pixels,
                      screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual,
                      XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(x, window);
}

void FrozenScreen::run()
{
    for (;;) {
        std::unique_ptr<xcb_generic_event_t, Free> event(xcb_wait_for_event(x));
        if (!event)
            return;
        while (event) {
            handle(*event);
            event.reset(xcb_poll_for_queued_event(x));
        }
        xcb_flush(x);
    }
}

void FrozenScreen::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type) {
    case XCB_EXPOSE:
        showTip();
        break;
    case XCB_BUTTON_PRESS: {
        const auto& press = reinterpret_cast<const xcb_button_press_event_t&>(event);
        last = {press.event_x, press.event_y};
        drawTo(last.x, last.y);
        break;
    }
    case XCB_MOTION_NOTIFY: {
        const auto& motion = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
        hideTip();
        if (motion.state & XCB_BUTTON_MASK_1)
            drawTo(motion.event_x, motion.event_y);
        break;
    }
    default:
        break;
    }
}

void FrozenScreen::showTip()
{
    const std::unique_ptr<xcb_query_pointer_reply_t, Free> pointer(
        xcb_query_pointer_reply(x, xcb_query_pointer(x, window), nullptr));
    if (!pointer)
        return;
    last = {pointer->win_x, pointer->win_y};
    drawTo(last.x, last.y);
    tipShown = true;
}

void FrozenScreen::hideTip()
{
    if (tipShown)
        xcb_clear_area(x, 0, window, static_cast<int16_t>(last.x - penWidth),
                       static_cast<int16_t>(last.y - penWidth), 2 * penWidth, 2 * penWidth);
    tipShown = false;
}

void FrozenScreen::drawTo(int16_t toX, int16_t toY)
{
    const xcb_point_t points[] = {last, {toX, toY}};
    xcb_poly_line(x, XCB_COORD_MODE_ORIGIN, window, pen, 2, points);
    last = points[1];
}
