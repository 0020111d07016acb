#include "tests/desktop/harness/program.h"

#include "tests/desktop/harness/desktop.h"

#include <algorithm>

namespace {

Command commandFor(const Desktop& desktop, const Launch& launch)
{
    Environment environment = desktop.home.environment(desktop.display);
    environment.insert(launch.environment);
    for (const QByteArray& name : launch.unset)
        environment.remove(name);
    return {
        .program = launch.executable.isEmpty() ? Program::installedExecutable() : launch.executable,
        .arguments = launch.arguments,
        .environment = environment,
        .workingDirectory = launch.workingDirectory,
        .deathSignal = SIGKILL, // also ends one that a test has stopped
    };
}

}

Program::Program(const Desktop& where, const Launch& launch)
    : desktop(where)
    , colourBefore(where.screen.colourAt(where.pointer.position()))
    , child(commandFor(where, launch))
{
}

QByteArray Program::installedExecutable()
{
    return qgetenv("KORVEL_EXECUTABLE");
}

xcb_window_t Program::frame() const
{
    return desktop.windows.frameOf(child.pid());
}

bool Program::hasKeyboard() const
{
    const xcb_window_t focused = desktop.windows.focused();
    return focused != XCB_NONE && focused == frame();
}

bool Program::isReady() const
{
    return hasKeyboard() && desktop.screen.colourAt(desktop.pointer.position()) != colourBefore;
}

void Program::askFrameToClose() const
{
    sendMessage(frame(), XCB_EVENT_MASK_NO_EVENT, "WM_PROTOCOLS",
                {desktop.x.atom("WM_DELETE_WINDOW"), XCB_CURRENT_TIME});
}

void Program::closeThroughManager() const
{
    constexpr uint32_t byATaskBar = 2;
    sendMessage(desktop.x.root(),
                XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, byATaskBar});
}

void Program::sendMessage(xcb_window_t receiver, uint32_t eventMask, const char* type,
                          const QList<uint32_t>& data) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = frame();
    message.type = desktop.x.atom(type);
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(desktop.x.raw(), 0, receiver, eventMask,
                   reinterpret_cast<const char*>(&message));
    desktop.x.synchronise();
}
