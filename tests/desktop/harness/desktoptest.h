#pragma once

#include "tests/desktop/harness/desktop.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/program.h"
#include "tests/desktop/harness/windowmanager.h"
#include "tests/desktop/harness/xserver.h"

#include <QObject>

#include <memory>
#include <optional>

/// Base of the end-to-end tests: gives each test function a fresh X server with the pointer at a quiet place and a
/// white backdrop. Says nothing of the program.
class DesktopTest : public QObject {
    Q_OBJECT

protected:
    /// Where the pointer rests before the program starts: on the frame, far from the palette.
    static constexpr QPoint StartPoint{100, 100};

    /// Moves the pointer away and waits for the pen's dot there. Then all events sent before have been dealt with,
    /// and what the dot hid is to be seen.
    /// @param dotColour  as it appears on the screen
    [[nodiscard]] bool parkPointer(QPoint place, QColor dotColour) const;

    /// Rows for a test that holds with each window manager and with none; column "kind".
    static void addWindowManagers();
    /// Returns when it has taken charge; false if it does not.
    [[nodiscard]] bool startWindowManager(WindowManager::Kind kind);

    /// The server for one test function.
    [[nodiscard]] virtual std::unique_ptr<XServer> startServer();

    std::optional<Desktop> desktop;
    std::unique_ptr<XServer> server;

private slots:
    void init();
    void cleanup();

private:
    std::optional<WindowManager> manager;
};
