#include "os/process/windowsystem.h"

#include "os/process/xwindows.h"
#include "os/x11/connection.h"
#include "os/x11/ownconnection.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <type_traits>

namespace osUtils::Process {

namespace {

using namespace std::chrono_literals;
// Long enough for a distant server (a handful of round trips), short enough for a window that waits.
constexpr auto longestWait = 3s;

/// Qt's connection; null if Qt runs elsewhere or not at all.
xcb_connection_t* connectionOfQt()
{
    const bool hasWindows = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    return hasWindows ? X11::connection() : nullptr;
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
/// @return  whether it is done
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

/// What a function of a connection and a root window gives; nothing where there is no server.
template <typename Question> auto ask(Question question)
{
    using Answer = std::invoke_result_t<Question, xcb_connection_t*, xcb_window_t>;
    if (xcb_connection_t* connection = connectionOfQt())
        return question(connection, X11::rootWindow(connection));

    const char* variable = std::getenv("DISPLAY");
    if (!variable || !*variable)
        return Answer();
    const auto answer = std::make_shared<Answer>(); // the thread may live longer than this call
    const bool isDone = isDoneInTime([answer, display = std::string(variable), question] {
        int screen = 0;
        const X11::OwnConnection connection(xcb_connect(display.c_str(), &screen));
        if (!xcb_connection_has_error(connection.get()))
            *answer = question(connection.get(), rootWindow(connection.get(), screen));
    });
    return isDone ? *answer : Answer();
}

}

std::optional<int> frontmostProcess()
{
    return ask([](auto... screen) { return frontmostProcess(screen...); });
}

std::optional<WindowIdentity> listedWindow(int process)
{
    return ask([process](auto... screen) { return listedWindow(screen..., process); });
}

}
