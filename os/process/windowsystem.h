#pragma once

#include <optional>
#include <string>

/// What the running window system knows of other programs. Nothing where there is none, or one that
/// is not asked here (only X11 is).
namespace osUtils::Process {

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

/// The names that the first listed window of the process bears; none if it has no such window.
[[nodiscard]] std::optional<WindowIdentity> listedWindow(int process);

}
