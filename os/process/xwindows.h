#pragma once

#include "os/process/windowsystem.h"

#include <xcb/xcb.h>

/// Finds processes by their windows, and windows by their processes, on one screen of an X server.
///
/// The server knows the process at the other end of each connection. Where it does not, or where its
/// numbers are not those of here, what windows tell of themselves has to do.
namespace osUtils::Process {

/// The process of the window that the user works with.
[[nodiscard]] std::optional<int> frontmostProcess(xcb_connection_t* connection, xcb_window_t root);

/// The first of the process's windows that the window manager lists.
[[nodiscard]] std::optional<WindowIdentity> listedWindow(xcb_connection_t* connection,
                                                         xcb_window_t root, int process);

}
