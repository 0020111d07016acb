#include "os/process/windowsystem.h"

#include "os/process/timelimit.h"
#include "os/process/xwindows.h"
#include "os/x11/ownconnection.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <functional>
#include <memory>

namespace osUtils::Process {

namespace {

// Long enough for a distant server (a handful of round trips), short enough for a window that waits.
constexpr std::chrono::seconds longestWait{3};

template <typename Answer> using Question = std::function<std::optional<Answer>(const XWindows&)>;

/// The toolkit's connection; null if it runs elsewhere or not at all.
xcb_connection_t* toolkitConnection()
{
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    const auto* x11 =
        application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

/// The root window of a screen.
xcb_window_t rootWindow(xcb_connection_t* connection, int screen)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screen-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return screens.data->root;
}

/// Asks over a connection made for this one question.
template <typename Answer>
std::optional<Answer> askDisplay(const std::string& display, const Question<Answer>& question)
{
    int screen = 0;
    const X11::OwnConnection connection(xcb_connect(display.c_str(), &screen));
    if (xcb_connection_has_error(connection.get()))
        return std::nullopt;
    return question(XWindows(connection.get(), rootWindow(connection.get(), screen)));
}

template <typename Answer> std::optional<Answer> ask(const Question<Answer>& question)
{
    if (xcb_connection_t* connection = toolkitConnection())
        return question(XWindows(connection, rootWindow(connection, 0)));

    const char* variable = std::getenv("DISPLAY");
    if (!variable || !*variable)
        return std::nullopt;
    const auto answer = std::make_shared<std::optional<Answer>>();
    const bool inTime =
        endsWithin(longestWait, [display = std::string(variable), question, answer] {
            *answer = askDisplay(display, question);
        });
    return inTime ? *answer : std::nullopt;
}

}

std::optional<int> frontmostProcess()
{
    return ask<int>([](const XWindows& windows) { return windows.frontmostProcess(); });
}

std::optional<WindowIdentity> listedWindow(int process)
{
    return ask<WindowIdentity>(
        [process](const XWindows& windows) { return windows.listedWindow(process); });
}

}
