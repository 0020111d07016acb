#include "windowsystem/clients.h"

#include "windowsystem/x11/atoms.h"
#include "windowsystem/x11/connection.h"
#include "windowsystem/x11/property.h"

#include <unistd.h>
#include <xcb/res.h>

#include <array>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <sstream>
#include <string_view>
#include <system_error>
#include <thread>
#include <type_traits>
#include <vector>

namespace Windowing {

using X11::bytesIn;
using X11::numbersIn;
using X11::PropertyReply;

namespace {

using namespace std::chrono_literals;
// Long enough for a distant server (a handful of round trips), short enough for a user who waits.
constexpr auto longestWait = 3s;

std::string hostName()
{
    std::array<char, HOST_NAME_MAX + 1> name{};
    return ::gethostname(name.data(), name.size()) == 0 ? name.data() : "";
}

/// What a window itself tells of its process: a single number, trusted if the window says that it
/// comes from this host.
std::optional<int> toldProcess(const PropertyReply& id, const PropertyReply& machine)
{
    const std::vector<uint32_t> ids = numbersIn(id);
    if (ids.size() != 1 || ids.front() == 0 || ids.front() > INT_MAX)
        return std::nullopt;
    // Some programs count the zero byte at the end as part of the text.
    const std::string told = bytesIn(machine).c_str();
    return !told.empty() && told == hostName() ? std::optional(static_cast<int>(ids.front()))
                                               : std::nullopt;
}

xcb_window_t parentOf(xcb_connection_t* connection, xcb_window_t window)
{
    const auto reply =
        X11::replyTo(xcb_query_tree_reply, connection, xcb_query_tree(connection, window));
    return reply ? reply->parent : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_window_t windowUnderPointer(xcb_connection_t* connection, xcb_window_t window)
{
    const auto reply =
        X11::replyTo(xcb_query_pointer_reply, connection, xcb_query_pointer(connection, window));
    const bool isInChild = reply && reply->child != XCB_WINDOW_NONE;
    return isInChild ? windowUnderPointer(connection, reply->child) : window;
}

xcb_window_t windowWithKeys(xcb_connection_t* connection, xcb_window_t root)
{
    const auto reply =
        X11::replyTo(xcb_get_input_focus_reply, connection, xcb_get_input_focus(connection));
    if (!reply)
        return XCB_WINDOW_NONE;
    return reply->focus == XCB_INPUT_FOCUS_POINTER_ROOT ? windowUnderPointer(connection, root)
                                                        : reply->focus;
}

constexpr std::array<QByteArrayView, 6> atomNames{
    X11::activeWindow, "_NET_CLIENT_LIST",         X11::supportingWmCheck,
    "_NET_WM_PID",     "_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID"};

/// One screen, asked once.
class XWindows {
public:
    XWindows(xcb_connection_t* server, xcb_window_t rootWindow)
        : connection(server)
        , root(rootWindow)
        , atoms(server, atomNames)
    {
        // A server that is far away, or in a process namespace of its own, knows us by another
        // number.
        const xcb_query_extension_reply_t* resources =
            xcb_get_extension_data(connection, &xcb_res_id);
        if (resources && resources->present)
            serverKnowsProcesses =
                processOf(askClient(xcb_get_setup(connection)->resource_id_base)) == ::getpid();
    }

    [[nodiscard]] std::optional<int> frontmostProcess() const
    {
        const xcb_window_t manager =
            X11::managerWindow(connection, root, atoms.of(X11::supportingWmCheck));
        if (manager == XCB_WINDOW_NONE)
            return processAround(windowWithKeys(connection, root));

        const std::vector<uint32_t> active = numbersOf(root, "_NET_ACTIVE_WINDOW");
        if (!active.empty() && active.front() == XCB_WINDOW_NONE)
            return std::nullopt;
        auto process = active.empty() ? std::nullopt : read(askOwner(active.front()));
        // The window may be gone by now. The window manager's own windows have the keyboard when no
        // other window has it.
        if (!process) {
            process = processAround(windowWithKeys(connection, root));
            if (process == read(askOwner(manager)))
                return std::nullopt;
        }
        return process;
    }

    [[nodiscard]] std::optional<WindowIdentity> listedWindow(int process) const
    {
        std::vector<OwnerCookies> owners;
        for (const xcb_window_t window : numbersOf(root, "_NET_CLIENT_LIST"))
            owners.push_back(askOwner(window));

        xcb_window_t found = XCB_WINDOW_NONE;
        for (const OwnerCookies& owner : owners) {
            if (read(owner) == process && found == XCB_WINDOW_NONE)
                found = owner.window;
        }
        if (found == XCB_WINDOW_NONE)
            return std::nullopt;
        const auto desktopFile = ask(found, atoms.of("_KDE_NET_WM_DESKTOP_FILE"));
        const auto gtkApplication = ask(found, atoms.of("_GTK_APPLICATION_ID"));
        const auto windowClass = ask(found, XCB_ATOM_WM_CLASS);
        WindowIdentity names{
            bytesIn(replyTo(desktopFile)), bytesIn(replyTo(gtkApplication)), {}, {}};
        // Two texts that each end with a zero byte.
        std::istringstream classNames(bytesIn(replyTo(windowClass)));
        std::getline(classNames, names.instance, '\0');
        std::getline(classNames, names.className, '\0');
        return names;
    }

private:
    /// Requests under way, sent together since each wait counts on a distant server. Every reply
    /// must be read.
    struct OwnerCookies {
        xcb_window_t window;
        xcb_get_property_cookie_t id;
        xcb_get_property_cookie_t machine;
        xcb_res_query_client_ids_cookie_t client;
    };

    [[nodiscard]] xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property) const
    {
        return X11::askForProperty(connection, window, property);
    }

    [[nodiscard]] PropertyReply replyTo(xcb_get_property_cookie_t cookie) const
    {
        return X11::replyTo(xcb_get_property_reply, connection, cookie);
    }

    [[nodiscard]] std::vector<uint32_t> numbersOf(xcb_window_t window, const char* property) const
    {
        return X11::numbersOf(connection, window, atoms.of(property));
    }

    [[nodiscard]] xcb_res_query_client_ids_cookie_t askClient(uint32_t resource) const
    {
        const xcb_res_client_id_spec_t wanted{resource, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        return xcb_res_query_client_ids(connection, 1, &wanted);
    }

    [[nodiscard]] std::optional<int> processOf(xcb_res_query_client_ids_cookie_t cookie) const
    {
        const auto reply = X11::replyTo(xcb_res_query_client_ids_reply, connection, cookie);
        if (!reply || reply->num_ids != 1)
            return std::nullopt;
        const xcb_res_client_id_value_t* const value =
            xcb_res_query_client_ids_ids_iterator(reply.get()).data;
        if (xcb_res_client_id_value_value_length(value) != 1)
            return std::nullopt;
        return static_cast<int>(*xcb_res_client_id_value_value(value));
    }

    [[nodiscard]] OwnerCookies askOwner(xcb_window_t window) const
    {
        OwnerCookies cookies{window,
                             ask(window, atoms.of("_NET_WM_PID")),
                             ask(window, XCB_ATOM_WM_CLIENT_MACHINE),
                             {}};
        if (serverKnowsProcesses)
            cookies.client = askClient(window);
        return cookies;
    }

    [[nodiscard]] std::optional<int> read(const OwnerCookies& cookies) const
    {
        const PropertyReply id = replyTo(cookies.id);
        const PropertyReply machine = replyTo(cookies.machine);
        const auto owner = serverKnowsProcesses ? processOf(cookies.client) : std::nullopt;
        // The id of a window that is gone may belong to a client that is alive, or to another one
        // by now.
        if (owner && machine)
            return owner;
        return toldProcess(id, machine);
    }

    [[nodiscard]] std::optional<int> processAround(xcb_window_t window) const
    {
        // The keyboard focus is often on a child of the window that names its process.
        for (; window != XCB_WINDOW_NONE && window != root; window = parentOf(connection, window)) {
            if (const std::optional<int> process = read(askOwner(window)))
                return process;
        }
        return std::nullopt;
    }

    xcb_connection_t* connection;
    const xcb_window_t root;
    mutable X11::Atoms atoms;
    bool serverKnowsProcesses = false;
};

/// The root window of a screen.
xcb_window_t rootWindow(xcb_connection_t* connection, int screen)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screen-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return screens.data->root;
}

/// Leaves the process's signals to its other threads, and keeps SIGPIPE from a broken connection
/// from ending the process.
void blockSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

/// Runs work that may never end on a thread of its own and gives up on it after a while. Until that
/// thread has ended nothing new is started, so that neither time nor threads are lost.
/// @return  whether the work is done
bool isDoneInTime(const std::function<void()>& work)
{
    static std::mutex guard;
    static std::shared_future<void> givenUp;

    if (const std::lock_guard lock(guard);
        givenUp.valid() && givenUp.wait_for(0s) != std::future_status::ready)
        return false;
    std::packaged_task<void()> task([work] {
        blockSignals();
        work();
    });
    const std::shared_future<void> end = task.get_future().share();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        return false; // no more threads to be had
    }
    if (end.wait_for(longestWait) == std::future_status::ready)
        return true;
    const std::lock_guard lock(guard);
    givenUp = end;
    return false;
}

/// The answer to a question about a screen's windows; empty where there is no server.
template <typename Question> auto ask(Question question)
{
    using Answer = std::invoke_result_t<Question, const XWindows&>;
    if (xcb_connection_t* connection = X11::connection())
        return question(XWindows(connection, X11::rootWindow(connection)));

    const char* variable = std::getenv("DISPLAY");
    if (!variable || !*variable)
        return Answer();
    const auto answer = std::make_shared<Answer>(); // the thread may live longer than this call
    const bool isDone = isDoneInTime([answer, display = std::string(variable), question] {
        int screen = 0;
        const X11::OwnConnection connection(xcb_connect(display.c_str(), &screen));
        if (!xcb_connection_has_error(connection.get()))
            *answer = question(XWindows(connection.get(), rootWindow(connection.get(), screen)));
    });
    return isDone ? *answer : Answer();
}

}

std::optional<int> frontmostProcess()
{
    return ask([](const XWindows& windows) { return windows.frontmostProcess(); });
}

std::optional<WindowIdentity> listedWindow(int process)
{
    return ask([process](const XWindows& windows) { return windows.listedWindow(process); });
}

}
