#pragma once

#include "tests/desktop/harness/clientwindow.h"
#include "tests/desktop/harness/grab.h"
#include "tests/desktop/harness/xconnection.h"

#include <optional>

/// A small menu of another program that is open: no window manager touches it, and it has grabbed
/// pointer and keyboard, so that nobody else hears of them. As menus do, it goes on Escape.
class PoppedUpMenu {
public:
    /// Returns when it has both.
    PoppedUpMenu(const QByteArray& display, QRect place, QColor colour);

    [[nodiscard]] xcb_window_t id() const { return window ? window->id() : XCB_NONE; }
    /// Whether it has got pointer and keyboard, which nobody else may have grabbed.
    [[nodiscard]] bool hasGrabbed() const { return grabbed; }
    /// Whether it is still there. To be asked until it is not: it sees the keys only then.
    [[nodiscard]] bool isOpen();

private:
    void close();

    const XConnection x;
    std::optional<ClientWindow> window;
    std::optional<Grab> grab;
    const bool grabbed;
};
