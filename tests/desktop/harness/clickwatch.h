#pragma once

#include "tests/desktop/harness/xconnection.h"

/// Counts the presses of mouse buttons that reach one window, on a connection of its own.
class ClickWatch {
public:
    ClickWatch(const QByteArray& display, xcb_window_t window);

    /// How many have come so far.
    [[nodiscard]] int presses();

private:
    const XConnection x;
    int count = 0;
};
