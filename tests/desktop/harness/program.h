#pragma once

#include "tests/desktop/harness/childprocess.h"

#include <QColor>

#include <xcb/xcb.h>

struct Desktop;

/// How the program is to be started; what is left out is as usual.
struct Launch {
    QList<QByteArray> arguments = {};
    QByteArray executable = {};
    QByteArray workingDirectory = "/";
    Environment environment = {}; ///< on top of the home's
    QList<QByteArray> unset = {}; ///< variables taken out of the environment
};

/// The program under test, started as a user would on the test's desktop.
class Program {
public:
    explicit Program(const Desktop& desktop, const Launch& launch = {});

    /// The installed executable, as the build tells by the environment variable KORVEL_EXECUTABLE.
    [[nodiscard]] static QByteArray installedExecutable();

    [[nodiscard]] xcb_window_t frame() const;
    /// Whether its frame is on the screen and gets the keys.
    [[nodiscard]] bool hasKeyboard() const;
    /// Whether it has the keyboard and has painted the dot under the pointer: all is set up by
    /// then.
    [[nodiscard]] bool isReady() const;

    /// Asks its frame to close, as a window manager does for the user.
    void askFrameToClose() const;
    /// Has the window manager close the frame, as a task bar does.
    void closeThroughManager() const;

    [[nodiscard]] ChildProcess& process() { return child; }
    [[nodiscard]] int status() { return child.status(); }
    [[nodiscard]] pid_t pid() const { return child.pid(); }

private:
    const Desktop& desktop;
    const QColor colourBefore;
    ChildProcess child;
};
