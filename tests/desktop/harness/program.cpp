#include "tests/desktop/harness/program.h"

#include "tests/desktop/harness/clientmessage.h"
#include "tests/desktop/harness/desktop.h"

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
    askWindow(desktop.x, frame(), "WM_PROTOCOLS",
              {desktop.x.atom("WM_DELETE_WINDOW"), XCB_CURRENT_TIME});
}

void Program::closeThroughManager() const
{
    constexpr uint32_t byATaskBar = 2;
    askWindowManager(desktop.x, frame(), "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, byATaskBar});
}
