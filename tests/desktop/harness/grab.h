#pragma once

#include <xcb/xcb.h>

class XConnection;

/// Pointer and keyboard held by one window, as an open menu does. Let go with this object.
class Grab {
public:
    Grab(const XConnection& connection, xcb_window_t window);
    Grab(const Grab&) = delete;
    Grab& operator=(const Grab&) = delete;
    ~Grab();

    /// Whether the server has granted both.
    [[nodiscard]] bool isHeld() const { return held; }

private:
    const XConnection& x;
    bool held = false;
};
