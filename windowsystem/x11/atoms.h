#pragma once

#include <QByteArrayView>

#include <xcb/xcb.h>

/// Names that the X server knows by number. They need the toolkit's connection, and belong to the main thread.
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
/// Where compositors need not look for what shines through.
constexpr QByteArrayView wmOpaqueRegion = "_NET_WM_OPAQUE_REGION";

/// Read by picom (and its forerunner, whose name it bears), from the window manager's outermost frame.
constexpr QByteArrayView picomShadow = "_COMPTON_SHADOW";
/// Read by the compositors of mutter and metacity: with invisible borders of no width there is none to put
/// a shadow around.
constexpr QByteArrayView frameExtents = "_GTK_FRAME_EXTENTS";

/// The number of a name, one of those above or any other. The server is asked for all of the above at once
/// and for each once: one by one, it would take a window a millisecond longer to come up.
[[nodiscard]] xcb_atom_t atom(QByteArrayView name);

}
