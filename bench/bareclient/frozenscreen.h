#pragma once

#include <xcb/xcb.h>

#include <memory>

/// A window over the whole screen that shows its picture, and a red pen of 5 pixels to draw on it
/// with the left button. Keeps nothing but what the server keeps for it, and does nothing but what
/// drawing needs.
class FrozenScreen {
public:
    FrozenScreen();

    /// Draws until the connection ends.
    void run();

private:
    struct Disconnect {
        void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
    };
    void createPen();
    void takePicture();
    void createWindow();
    void handle(const xcb_generic_event_t& event);
    void showTip();
    void hideTip();
    void drawTo(int16_t toX, int16_t toY);

    const std::unique_ptr<xcb_connection_t, Disconnect> connection;
    xcb_connection_t* const x;
    const xcb_screen_t* const screen;
    const xcb_window_t window;
    const xcb_pixmap_t picture;
    const xcb_gcontext_t pen;
    xcb_point_t last{};
    bool tipShown = false;
};
