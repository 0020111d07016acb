#pragma once

#include "tests/desktop/harness/home.h"

#include <xcb/xcb.h>

struct Desktop;

/// A desktop's panel at the bottom of the screen: reserves its place and lies above other windows.
class Panel {
public:
    static constexpr auto executable = "/usr/bin/tint2";

    /// Starts it; returns at once.
    explicit Panel(const Desktop& desktop);

    /// Its window once it is on the screen, until then XCB_NONE.
    [[nodiscard]] xcb_window_t window() const;

private:
    const Desktop& desktop;
    const Home home;
    ChildProcess panel;
};
