#include "os/process/windowsystem.h"

#include "os/process/xwindows.h"
#include "windowsystem/x11/connection.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <mutex>
#include <system_error>
#include <thread>

namespace osUtils::Process {

namespace {

using namespace std::chrono_literals;
// Long enough for a distant server (a handful of round trips), short enough for a window that waits.
constexpr auto longestWait = 3s;

template <typename Answer>
using Question = std::function<std::optional<Answer>(xcb_connection_t*, xcb_window_t)>;

/// The toolkit's connection; null if it runs elsewhere or not at all.
xcb_connection_t* toolkitConnection()
{
    const bool hasWindows = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    return hasWindows ? Windowing::X11::connection() : nullptr;
}

/// The root window of a screen.
xcb_window_t rootWindow(xcb_connection_t* connection, int screen)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screen-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return screens.data->root;
}

/// Leaves the process's signals to its other threads, and keeps a connection that breaks while it is
/// written to from ending the process.
void blockSignals()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

/// Does what may never end on a thread of its own, and gives it up after a time. Until that has ended
/// nothing else is begun, so that neither time nor threads are lost.
template <typename Answer> std::optional<Answer> inTime(std::function<std::optional<Answer>()> work)
{
    static std::mutex guard;
    static std::shared_future<std::optional<Answer>> givenUp;

    if (const std::lock_guard lock(guard);
        givenUp.valid() && givenUp.wait_for(0s) != std::future_status::ready)
        return std::nullopt;
    std::packaged_task<std::optional<Answer>()> task([work] {
        blockSignals();
        return work();
    });
    const auto answer = task.get_future().share();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        return std::nullopt; // no more threads to be had
    }
    if (answer.wait_for(longestWait) == std::future_status::ready)
        return answer.get();
    const std::lock_guard lock(guard);
    givenUp = answer;
    return std::nullopt;
}

template <typename Answer> std::optional<Answer> ask(const Question<Answer>& question)
{
    if (xcb_connection_t* connection = toolkitConnection())
        return question(connection, Windowing::X11::rootWindow(connection));

    const char* variable = std::getenv("DISPLAY");
    if (!variable || !*variable)
        return std::nullopt;
    return inTime<Answer>([display = std::string(variable), question]() -> std::optional<Answer> {
        int screen = 0;
        const Windowing::X11::OwnConnection connection(xcb_connect(display.c_str(), &screen));
        if (xcb_connection_has_error(connection.get()))
            return std::nullopt;
        return question(connection.get(), rootWindow(connection.get(), screen));
    });
}

}

std::optional<int> frontmostProcess()
{
    return ask<int>([](auto... screen) { return frontmostProcess(screen...); });
}

std::optional<WindowIdentity> listedWindow(int process)
{
    return ask<WindowIdentity>(
        [process](auto... screen) { return listedWindow(screen..., process); });
}

}
