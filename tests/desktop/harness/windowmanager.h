#pragma once

#include "tests/desktop/harness/home.h"
#include "tests/desktop/harness/managerrecipe.h"
#include "tests/desktop/harness/messagebus.h"

#include <memory>
#include <optional>

class ClientWindow;
class XConnection;

/// A window manager on the virtual screen, with a home and, where it needs one, a message bus of
/// its own.
class WindowManager {
public:
    /// Starts it; returns at once.
    /// @param recipe  outlives this object
    WindowManager(const ManagerRecipe& recipe, const XConnection& connection,
                  const QByteArray& display);

    ~WindowManager();

    /// Whether it has taken charge of the screen, or none was wanted. To be asked until it has.
    [[nodiscard]] bool isInCharge();
    /// Whether it runs, or none was wanted.
    [[nodiscard]] bool isAlive();
    /// All that it wrote so far.
    [[nodiscard]] QByteArray output() const;

    /// Ends it at once, as a crash does: nothing that it has set is taken back.
    void kill();

    /// Asks for another virtual desktop to be shown; what comes of it is to be waited for.
    /// @param number  counted from 0
    void goToDesktop(int number);

private:
    [[nodiscard]] Environment environment() const;
    void writeSettings() const;

    const ManagerRecipe& recipe;
    const XConnection& x;
    const QByteArray display;
    const Home home;
    std::optional<MessageBus> bus;
    std::unique_ptr<ChildProcess> manager;
    std::unique_ptr<ClientWindow> probe;
};
