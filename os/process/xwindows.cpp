#include "os/process/xwindows.h"

#include "os/x11/replypointer.h"

#include <unistd.h>

#include <climits>

namespace osUtils::Process {

using X11::ReplyPointer;

namespace {

std::string hostName()
{
    std::array<char, HOST_NAME_MAX + 1> name{};
    return ::gethostname(name.data(), name.size()) == 0 ? name.data() : "";
}

/// What a window tells of its process, on the way.
struct OwnerCookies {
    OwnerCookies(const WindowProperties& properties, xcb_window_t asked)
        : window(asked)
        , id(properties.ask(asked, WindowProperties::Property::ProcessId))
        , machine(properties.ask(asked, WindowProperties::Property::ClientMachine))
    {
    }

    [[nodiscard]] std::optional<int> read(const WindowProperties& properties,
                                          const std::string& host) const
    {
        const std::vector<uint32_t> ids = properties.numbers(id);
        return localProcess(ids, properties.bytes(machine), host);
    }

    xcb_window_t window;
    WindowProperties::Cookie id;
    WindowProperties::Cookie machine;
};

}

XWindows::XWindows(xcb_connection_t* server, xcb_window_t rootWindow)
    : connection(server)
    , root(rootWindow)
    , properties(server)
    , host(hostName())
{
}

std::optional<int> XWindows::frontmostProcess() const
{
    // A window manager that has ended leaves its properties behind.
    if (managerRuns()) {
        const std::vector<uint32_t> active = numbers(root, Property::ActiveWindow);
        if (!active.empty())
            return processOf(active.front());
    }
    return processAround(windowWithKeys());
}

std::optional<WindowIdentity> XWindows::listedWindow(int process) const
{
    std::vector<OwnerCookies> owners;
    for (const xcb_window_t window : numbers(root, Property::ClientList))
        owners.emplace_back(properties, window);

    xcb_window_t found = XCB_WINDOW_NONE;
    for (const OwnerCookies& owner : owners) {
        if (owner.read(properties, host) == process && found == XCB_WINDOW_NONE)
            found = owner.window;
    }
    if (found == XCB_WINDOW_NONE)
        return std::nullopt;
    return identityOf(found);
}

std::vector<uint32_t> XWindows::numbers(xcb_window_t window, Property property) const
{
    return properties.numbers(properties.ask(window, property));
}

bool XWindows::managerRuns() const
{
    // It announces itself by a window of its own that names itself.
    const std::vector<uint32_t> check = numbers(root, Property::ManagerCheck);
    return !check.empty() && numbers(check.front(), Property::ManagerCheck) == check;
}

std::optional<int> XWindows::processOf(xcb_window_t window) const
{
    return OwnerCookies(properties, window).read(properties, host);
}

std::optional<int> XWindows::processAround(xcb_window_t window) const
{
    // Keys often go to a child of the window that tells its process.
    for (; window != XCB_WINDOW_NONE && window != root; window = parentOf(window)) {
        if (const std::optional<int> process = processOf(window))
            return process;
    }
    return std::nullopt;
}

xcb_window_t XWindows::windowWithKeys() const
{
    const ReplyPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    if (!reply)
        return XCB_WINDOW_NONE;
    if (reply->focus == XCB_INPUT_FOCUS_POINTER_ROOT)
        return windowUnderPointer();
    return reply->focus;
}

xcb_window_t XWindows::windowUnderPointer() const
{
    xcb_window_t window = root;
    while (true) {
        const ReplyPointer<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window), nullptr));
        if (!reply || reply->child == XCB_WINDOW_NONE)
            return window;
        window = reply->child;
    }
}

xcb_window_t XWindows::parentOf(xcb_window_t window) const
{
    const ReplyPointer<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    return reply ? reply->parent : xcb_window_t{XCB_WINDOW_NONE};
}

WindowIdentity XWindows::identityOf(xcb_window_t window) const
{
    const auto desktopFile = properties.ask(window, Property::DesktopFile);
    const auto gtkApplication = properties.ask(window, Property::GtkApplication);
    const auto windowClass = properties.ask(window, Property::WindowClass);
    // Braces read in this order, though any would do.
    return {properties.bytes(desktopFile), properties.bytes(gtkApplication),
            windowClassFrom(properties.bytes(windowClass))};
}

}
