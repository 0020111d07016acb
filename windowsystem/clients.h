#pragma once

#include <optional>
#include <string>

/// What the window system knows about other programs and their windows; nothing where there is no X
/// server. Needs no application object.
///
/// The server knows the process at the other end of each connection. Where it does not, or where it
/// counts processes differently from this machine, the windows' own properties have to do.
namespace Windowing {

/// The names a window bears; each may be empty.
struct WindowIdentity {
    /// Its desktop entry, as set by the toolkits of KDE and GNOME.
    std::string desktopFile;
    std::string gtkApplication;
    /// Its class: a name for windows of its kind within the program, and one for the program.
    std::string instance;
    std::string className;
};

/// The process whose window the user is working in.
[[nodiscard]] std::optional<int> frontmostProcess();

/// The names of the process's first window in the window manager's list; none if it has no window
/// there.
[[nodiscard]] std::optional<WindowIdentity> listedWindow(int process);

}
