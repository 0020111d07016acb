#pragma once

#include "os/process/windowidentity.h"

#include <xcb/res.h>
#include <xcb/xcb.h>

#include <array>
#include <cstddef>

namespace osUtils::Process {

/// Finds processes by their windows, and windows by their processes, on one screen of an X server.
///
/// The server knows the process at the other end of each connection. Where it does not, or where its
/// numbers are not those of here, what windows tell of themselves has to do.
class XWindows {
public:
    /// @param connection  stays open for as long as this object lives
    XWindows(xcb_connection_t* connection, xcb_window_t rootWindow);

    /// The process of the window that the user works with.
    [[nodiscard]] std::optional<int> frontmostProcess() const;

    /// The first of the process's windows that the window manager lists.
    [[nodiscard]] std::optional<WindowIdentity> listedWindow(int process) const;

private:
    /// In the order of their names in the source.
    enum Property {
        ActiveWindow,
        ClientList,
        ManagerCheck,
        ProcessId,
        ClientMachine,
        WindowClassNames,
        DesktopFile,
        GtkApplication,
        PropertyCount,
    };
    /// Questions under way: on a distant server every wait counts. All are to be read.
    struct OwnerCookies {
        xcb_window_t window;
        xcb_get_property_cookie_t id;
        xcb_get_property_cookie_t machine;
        xcb_res_query_client_ids_cookie_t client;
    };

    [[nodiscard]] xcb_get_property_cookie_t ask(xcb_window_t window, Property property) const;
    [[nodiscard]] xcb_res_query_client_ids_cookie_t askClient(uint32_t resource) const;
    [[nodiscard]] std::optional<int> processOf(xcb_res_query_client_ids_cookie_t cookie) const;
    [[nodiscard]] OwnerCookies askOwner(xcb_window_t window) const;
    [[nodiscard]] std::optional<int> read(const OwnerCookies& cookies) const;
    [[nodiscard]] std::optional<int> processAround(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t managerWindow() const;

    xcb_connection_t* connection;
    const xcb_window_t root;
    const std::string host;
    std::array<xcb_atom_t, PropertyCount> atoms{};
    bool serverKnowsProcesses = false;
};

}
