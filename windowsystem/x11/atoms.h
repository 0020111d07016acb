#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <map>
#include <span>

#include <xcb/xcb.h>

/// Names that the X server knows by number.
namespace Windowing::X11 {

// From the Extended Window Manager Hints.
constexpr QByteArrayView activeWindow = "_NET_ACTIVE_WINDOW";
constexpr QByteArrayView supportingWmCheck = "_NET_SUPPORTING_WM_CHECK";
constexpr QByteArrayView wmName = "_NET_WM_NAME";
constexpr QByteArrayView wmState = "_NET_WM_STATE";
constexpr QByteArrayView wmStateAbove = "_NET_WM_STATE_ABOVE";
constexpr QByteArrayView wmWindowType = "_NET_WM_WINDOW_TYPE";
constexpr QByteArrayView wmWindowTypeDock = "_NET_WM_WINDOW_TYPE_DOCK";
constexpr QByteArrayView wmWindowTypeNormal = "_NET_WM_WINDOW_TYPE_NORMAL";
constexpr QByteArrayView wmWindowTypeNotification = "_NET_WM_WINDOW_TYPE_NOTIFICATION";
/// Where compositors need not draw what lies beneath the window.
constexpr QByteArrayView wmOpaqueRegion = "_NET_WM_OPAQUE_REGION";

/// Read by picom from the window manager's outermost frame; named after compton, which it was
/// forked from.
constexpr QByteArrayView picomShadow = "_COMPTON_SHADOW";
/// Read by the compositors of mutter and metacity: invisible borders of width 0 leave nothing to
/// put a shadow around.
constexpr QByteArrayView frameExtents = "_GTK_FRAME_EXTENTS";

/// The numbers of names at a server. All that are usual are requested at once, and each only once:
/// one by one, they would delay a window by a millisecond.
class Atoms {
public:
    Atoms(xcb_connection_t* server, std::span<const QByteArrayView> usual);

    /// The number of a name, one of the usual or any other.
    [[nodiscard]] xcb_atom_t of(QByteArrayView name);

private:
    [[nodiscard]] xcb_intern_atom_cookie_t ask(QByteArrayView name) const;
    [[nodiscard]] xcb_atom_t answer(xcb_intern_atom_cookie_t cookie) const;

    xcb_connection_t* server;
    // An atom is the same as long as the server runs.
    std::map<QByteArray, xcb_atom_t> known;
};

/// The number of a name at the server of Qt's connection. Belongs to the main thread.
[[nodiscard]] xcb_atom_t atom(QByteArrayView name);

}
