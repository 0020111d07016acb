#pragma once

#include <optional>
#include <string>

/// What the window system knows of other programs and their windows; nothing where there is no X server. They need no
/// application object.
///
/// The server knows the process at the other end of each connection. Where it does not, or where
/// its numbers are not those of here, what windows tell of themselves has to do.
namespace Windowing {

/// The names that a window bears; each may be empty.
struct WindowIdentity {
    /// Of its desktop entry, as told by the toolkits of KDE and GNOME.
    std::string desktopFile;
    std::string gtkApplication;
    /// Of its class: a name for windows of its kind within the program, and one for the program.
    std::string instance;
    std::string className;
};

/// The process of the window that the user works with.
[[nodiscard]] std::optional<int> frontmostProcess();

/// The names that the first window of the process bears, of those that the window manager lists;
/// none if it has no such window.
[[nodiscard]] std::optional<WindowIdentity> listedWindow(int process);

}
