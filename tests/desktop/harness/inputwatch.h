#pragma once

#include "tests/desktop/harness/xconnection.h"

/// Counts the mouse buttons and the keys whose presses reach one window, on a connection of its
/// own.
class InputWatch {
public:
    InputWatch(const QByteArray& display, xcb_window_t window);

    /// How many buttons have been pressed so far.
    [[nodiscard]] int presses();
    /// How many keys have been pressed so far.
    [[nodiscard]] int keys();

private:
    void countEvents();

    const XConnection x;
    int buttonCount = 0;
    int keyCount = 0;
};
