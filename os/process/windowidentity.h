#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a window tells of the program that it belongs to, and how to read it.
namespace osUtils::Process {

/// A window's class: a name for windows of its kind within the program, and one for the program.
struct WindowClass {
    std::string instance;
    std::string name;

    bool operator==(const WindowClass&) const = default;
};

/// The names that a window bears; each may be empty.
struct WindowIdentity {
    /// Of its desktop entry, as told by the toolkits of KDE and GNOME.
    std::string desktopFile;
    std::string gtkApplication;
    WindowClass windowClass;

    bool operator==(const WindowIdentity&) const = default;
};

/// The class out of a window's property: two texts that each end with a zero byte.
[[nodiscard]] WindowClass windowClassFrom(std::string_view property);

/// The window's process, if it runs on this host.
/// @param ids  what the window tells of its process's id, a single number
/// @param machine  the host that the window says it comes from; a window that says none is not trusted
[[nodiscard]] std::optional<int> localProcess(const std::vector<uint32_t>& ids,
                                              std::string_view machine, std::string_view host);

}
