#pragma once

#include "tests/desktop/harness/desktop.h"
#include "tests/desktop/harness/eventually.h"
#include "tests/desktop/harness/program.h"
#include "tests/desktop/harness/windowmanager.h"
#include "tests/desktop/harness/xserver.h"

#include <QObject>

#include <memory>
#include <optional>

/// Base of the end-to-end tests: gives each test function a fresh X server with the pointer at a
/// quiet place and a white backdrop. Says nothing of the program.
class DesktopTest : public QObject {
    Q_OBJECT

protected:
    /// Where the pointer rests before the program starts: on the frame, far from the palette.
    static constexpr QPoint StartPoint{100, 100};

    /// Moves the pointer away and waits for the pen's dot there. Then all events sent before have
    /// been dealt with, and what the dot hid is to be seen.
    /// @param dotColour  as it appears on the screen
    [[nodiscard]] bool parkPointer(QPoint place, QColor dotColour) const;

    /// The screen once nothing on it moves any more.
    [[nodiscard]] QImage settledPicture() const;

    /// Whether the window manager of this name can be started at all.
    [[nodiscard]] static bool isInstalled(const QByteArray& manager);
    /// Returns when it has taken charge; false if it does not.
    /// @param name  one of the table's (managerrecipe.h)
    [[nodiscard]] bool startWindowManager(const QByteArray& name);

    /// What a derived test wants on every fresh desktop.
    virtual void furnish() { }
    /// Takes down what furnish() has put there.
    virtual void clearAway() { }

    /// The server for one test function.
    [[nodiscard]] virtual std::unique_ptr<XServer> startServer();

    std::unique_ptr<XServer> server;
    std::optional<Desktop> desktop;
    std::optional<WindowManager> manager;

private:
    /// In the working directory, for whoever looks into a failed test.
    void leavePicture() const;

private slots:
    void init();
    void cleanup();
};
