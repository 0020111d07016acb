#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace osUtils::Process {

/// The properties of windows that tell of their programs, over one connection to an X server.
///
/// A property is first asked for and then read, so that many can be under way at once: on a distant
/// server every wait counts. What is asked for must be read. A window or property that is not there
/// reads as nothing.
class WindowProperties {
public:
    /// In the order of their names in the source.
    enum class Property {
        ActiveWindow,
        ClientList,
        ManagerCheck,
        ProcessId,
        ClientMachine,
        WindowClass,
        DesktopFile,
        GtkApplication,
        Count,
    };
    using Cookie = xcb_get_property_cookie_t;

    /// @param connection  stays open for as long as this object lives
    explicit WindowProperties(xcb_connection_t* connection);

    [[nodiscard]] Cookie ask(xcb_window_t window, Property property) const;
    [[nodiscard]] std::vector<uint32_t> numbers(Cookie cookie) const;
    [[nodiscard]] std::string bytes(Cookie cookie) const;

private:
    xcb_connection_t* connection;
    std::array<xcb_atom_t, static_cast<std::size_t>(Property::Count)> atoms{};
};

}
