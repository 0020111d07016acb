#pragma once

#include "os/process/windowidentity.h"
#include "os/process/windowproperties.h"

#include <optional>
#include <string>

namespace osUtils::Process {

/// Finds processes by their windows, and windows by their processes, on one screen of an X server.
class XWindows {
public:
    /// @param connection  stays open for as long as this object lives
    XWindows(xcb_connection_t* connection, xcb_window_t rootWindow);

    /// The process of the window that the user works with.
    [[nodiscard]] std::optional<int> frontmostProcess() const;

    /// The first of the process's windows that the window manager lists.
    [[nodiscard]] std::optional<WindowIdentity> listedWindow(int process) const;

private:
    using Property = WindowProperties::Property;

    [[nodiscard]] std::vector<uint32_t> numbers(xcb_window_t window, Property property) const;
    [[nodiscard]] bool managerRuns() const;
    [[nodiscard]] std::optional<int> processOf(xcb_window_t window) const;
    [[nodiscard]] std::optional<int> processAround(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t windowWithKeys() const;
    [[nodiscard]] xcb_window_t windowUnderPointer() const;
    [[nodiscard]] xcb_window_t parentOf(xcb_window_t window) const;
    [[nodiscard]] WindowIdentity identityOf(xcb_window_t window) const;

    xcb_connection_t* connection;
    const xcb_window_t root;
    const WindowProperties properties;
    const std::string host;
};

}
