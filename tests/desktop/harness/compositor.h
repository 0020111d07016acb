#pragma once

#include "tests/desktop/harness/home.h"

class XConnection;

/// A compositor beside the window manager, which blends windows and gives them shadows.
class Compositor {
public:
    static constexpr auto executable = "/usr/bin/picom";

    /// Starts it; returns at once.
    Compositor(const XConnection& connection, const QByteArray& display);

    /// Whether it has taken over the screen. To be asked until it has.
    [[nodiscard]] bool isInCharge() const;
    [[nodiscard]] bool isAlive() { return compositor.isRunning(); }

private:
    const XConnection& x;
    const Home home;
    ChildProcess compositor;
};
