#pragma once

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>

#include <xcb/xcb.h>

class XConnection;

/// Answers questions about the windows on the screen. Changes none.
/// Coordinates are the screen's, in device pixels; a window that is not there is XCB_NONE.
class Windows {
public:
    explicit Windows(const XConnection& connection)
        : x(connection)
    {
    }

    /// The largest window of the process that is on the screen and managed like any other.
    [[nodiscard]] xcb_window_t frameOf(pid_t process) const;
    /// The open list of a box: a window of the process that no window manager touches.
    [[nodiscard]] xcb_window_t listOf(pid_t process) const;
    [[nodiscard]] xcb_window_t titled(const QByteArray& title) const;

    [[nodiscard]] QRect geometry(xcb_window_t window) const;
    [[nodiscard]] bool isOnScreen(xcb_window_t window) const;
    /// Whether one window, with whatever the window manager put around it, lies above another.
    [[nodiscard]] bool isAbove(xcb_window_t upper, xcb_window_t lower) const;
    /// The innermost window that a click there goes to: where a window lets the mouse through, the
    /// one below.
    [[nodiscard]] xcb_window_t at(QPoint point) const;
    /// The window that gets the keys.
    [[nodiscard]] xcb_window_t focused() const;
    /// The virtual desktop that is shown, counted from 0; -1 if nobody tells.
    [[nodiscard]] int currentDesktop() const;
    /// Whether the window manager has taken the window into its list.
    [[nodiscard]] bool isListed(xcb_window_t window) const;
    [[nodiscard]] bool has(xcb_window_t window, const char* property) const;
    /// Whether the property, a list of atoms, holds the atom of this name.
    [[nodiscard]] bool lists(xcb_window_t window, const char* property, const char* atom) const;

private:
    struct Found {
        xcb_window_t window;
        bool isUnmanaged;
    };
    [[nodiscard]] QList<xcb_window_t> children(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t childOfRoot(xcb_window_t window) const;
    [[nodiscard]] QList<Found> onScreen() const;
    [[nodiscard]] QList<xcb_window_t> ownedBy(pid_t process, bool unmanaged) const;
    [[nodiscard]] bool listHolds(xcb_window_t window, const char* property, uint32_t value) const;
    [[nodiscard]] QByteArray property(xcb_window_t window, xcb_atom_t name) const;

    const XConnection& x;
};
