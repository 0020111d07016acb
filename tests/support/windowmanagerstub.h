#pragma once

#include "tests/desktop/harness/xconnection.h"

#include <vector>

/// Announces itself as the window manager of this name, and manages nothing. Withdrawn with this
/// object.
class AnnouncedWindowManager {
public:
    AnnouncedWindowManager(const XConnection& connection, const QByteArray& name);
    AnnouncedWindowManager(const AnnouncedWindowManager&) = delete;
    AnnouncedWindowManager& operator=(const AnnouncedWindowManager&) = delete;
    ~AnnouncedWindowManager();

    /// Destroys the window that bears the name, as a crash does; the announcement stays.
    void crash();

private:
    const XConnection& x;
    const xcb_window_t window;
};

/// Windows that enclose a window as those of window managers do. Destroyed with this object.
class WindowFrames {
public:
    explicit WindowFrames(const XConnection& connection)
        : x(connection)
    {
    }
    WindowFrames(const WindowFrames&) = delete;
    WindowFrames& operator=(const WindowFrames&) = delete;
    ~WindowFrames();

    /// Puts one more frame around the window and the frames that it has, of the same size. Frames
    /// are mapped.
    xcb_window_t enclose(xcb_window_t window);

private:
    const XConnection& x;
    std::vector<xcb_window_t> frames;
};
