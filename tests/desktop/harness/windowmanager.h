#pragma once

#include "tests/desktop/harness/home.h"

#include <QObject>

#include <xcb/xcb.h>

#include <memory>

class ClientWindow;
class XConnection;

/// A window manager on the virtual screen, with a home and, where it needs one, a message bus of its own.
class WindowManager {
    Q_GADGET
public:
    enum class Kind { None, Openbox, Xfwm4 };
    Q_ENUM(Kind)

    /// Starts it; returns at once.
    WindowManager(Kind kind, const XConnection& connection, const QByteArray& display);

    ~WindowManager();

    /// Whether it has taken charge of the screen, or none was wanted. To be asked until it has.
    [[nodiscard]] bool isInCharge();

private:
    [[nodiscard]] bool hasProperty(xcb_window_t window, const char* name) const;
    void startOpenbox(const QByteArray& display);
    void startXfwm4(const QByteArray& display);

    const Kind kind;
    const XConnection& x;
    Home home;
    std::unique_ptr<ChildProcess> bus;
    std::unique_ptr<ChildProcess> manager;
    std::unique_ptr<ClientWindow> probe;
};
