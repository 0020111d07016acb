#pragma once

#include <QByteArrayView>

/// The place of a window in the window manager's stacking order, which depends on the window
/// manager.
namespace Windowing::X11 {

/// How a window asks to lie above everything else.
struct WindowLayer {
    /// Values of the window type property.
    enum class Type { Normal, Notification, Dock };

    Type type = Type::Notification;
    /// Whether to ask for the full-screen state as well.
    bool fullScreen = false;

    bool operator==(const WindowLayer&) const = default;
};

/// The layer that keeps a window above panels, docks and always-on-top windows.
/// @param windowManager  its name as it announces it; empty when none runs
/// @param coversScreen  whether the window is exactly as large as a screen and lies on it
[[nodiscard]] WindowLayer coveringLayer(QByteArrayView windowManager, bool coversScreen);

/// Whether the window manager keeps always-on-top windows above panels, however far they are
/// lowered.
/// @param windowManager  as above
[[nodiscard]] bool keepsTopWindowsAbovePanels(QByteArrayView windowManager);

/// Whether the window manager shows a new window first and moves it into place afterwards.
/// @param windowManager  as above
[[nodiscard]] bool movesNewWindows(QByteArrayView windowManager);

}
