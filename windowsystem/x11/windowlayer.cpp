#include "windowsystem/x11/windowlayer.h"

#include <QByteArray>

#include <algorithm>
#include <array>

namespace Windowing::X11 {

namespace {

// Whatever its type, they move an overlay that is smaller than the screen into the work area,
// beside the panels, unless it is a dock. GNOME Shell manages windows by mutter.
constexpr std::array keepingOthersInWorkArea{"openbox", "metacity", "marco", "mutter",
                                             "gnome shell"};

constexpr std::array keepingTopWindowsAbovePanels{"xfwm", "fluxbox", "kwin"};

template <typename Names> bool containsAny(const QByteArray& lowerCaseName, const Names& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const char* name) { return lowerCaseName.contains(name); });
}

bool isFluxbox(const QByteArray& lowerCaseName)
{
    return lowerCaseName.contains("fluxbox");
}

}

WindowLayer coveringLayer(QByteArrayView windowManager, bool coversScreen)
{
    const QByteArray name = windowManager.toByteArray().toLower();
    // Xfwm4 (seen in 4.18) takes a full-screen window out of the above layer, whatever the order of
    // the requests, so that always-on-top windows show over it. Its docks stay above everything.
    if (name.contains("xfwm"))
        return {WindowLayer::Type::Dock, false};
    // Fluxbox (seen in 1.3.5) lifts whatever gets the keyboard above a full-screen window, and so
    // above the palette of an overlay that lets the mouse through. An always-on-top window is above
    // panels too.
    if (isFluxbox(name))
        return {WindowLayer::Type::Notification, false};
    if (!coversScreen && containsAny(name, keepingOthersInWorkArea))
        return {WindowLayer::Type::Dock, false};

    // Elsewhere the full-screen state is what puts a window above the panels and keeps the window
    // manager from fitting it into the work area. The notification type has no opening animation,
    // which would show the picture shifted, and leaves the window's own dialogs above it.
    return {WindowLayer::Type::Notification, coversScreen};
}

bool keepsTopWindowsAbovePanels(QByteArrayView windowManager)
{
    // Seen in xfwm4 4.18, fluxbox 1.3.5 and kwin 5.27: the always-on-top layer is above the docks.
    return containsAny(windowManager.toByteArray().toLower(), keepingTopWindowsAbovePanels);
}

bool movesNewWindows(QByteArrayView windowManager)
{
    // Fluxbox (seen in 1.3.5) places every window below a title bar, removes the title bar where
    // none is wanted, shows the window, and only then moves it up.
    return isFluxbox(windowManager.toByteArray().toLower());
}

}
